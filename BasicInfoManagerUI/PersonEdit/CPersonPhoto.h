#pragma once

#include <AccessControlLogical/PersonRecords.h>

#include <QFutureWatcher>
#include <QImage>
#include <QPointer>
#include <QWidget>

#include <memory>

class QDialog;
namespace Ui {
class CPersonPhoto;
}

namespace BasicInfoManagerUI {

/// The photo of a person: shown, taken from a file or from a camera, and deleted. Pictures are read in the
/// background. User-interface thread.
class CPersonPhoto : public QWidget
{
    Q_OBJECT

public:
    explicit CPersonPhoto(QWidget* pParent = nullptr);
    ~CPersonPhoto() override;

    /// Shows the person's photo; dialogs of an earlier one are closed.
    void SetPerson(const AccessControlLogical::Person_t& person);
    void FillPerson(AccessControlLogical::Person_t& person) const;
    void SetReadOnly(bool bReadOnly);
    /// Back again, a photo that could not be fetched is fetched.
    void SetConnected(bool bConnected);
    /// Says under the photo what is wrong with it.
    void ShowFailure(const QString& sText);

Q_SIGNALS:
    void SignalChanged();

private:
    enum class Reading
    {
        None,
        Stored, ///< the photo that the person has
        Chosen ///< a file that the user chose
    };
    void Read(Reading reading, const QString& sPath);
    void OnRead();
    void ReadStored();
    void OnDownloaded(int nErrorCode, const QString& sUrl);
    void OnUploadClicked();
    void OnSnapshotClicked();
    void OnDeleteClicked();
    void Cut(const QImage& image);
    void SetPhotoData(const QByteArray& baJpeg);
    void ShowPhoto(const QImage& image);
    void ShowState(const QString& sText, bool bFailed = false);
    void UpdateButtons();

    std::unique_ptr<Ui::CPersonPhoto> m_pUi;
    std::string m_sUrl;
    std::string m_sData; ///< Base64
    Reading m_reading = Reading::None;
    bool m_bShown = false; ///< the photo, not its placeholder
    bool m_bReadOnly = false;
    QPointer<QDialog> m_pDialog;
    QFutureWatcher<QImage> m_watcher;
};

} // namespace BasicInfoManagerUI
