#pragma once

#include <CardReader/CardIssuer.h>

#include <QDialog>

namespace Ui {
class CCardReadManager;
}
namespace UICommonMdl {
class ILocalConfig;
}

namespace BasicInfoManagerUI {

/// Chooses the card-issuing reader, and remembers it. Deletes itself when it is closed. User-interface
/// thread.
class CCardReadManager : public QDialog
{
    Q_OBJECT

public:
    static const QString TypeKey; ///< setting: the type of the reader
    static const QString ReaderKey; ///< setting: its name; empty: the first one of that type

    /// pConfig (borrowed) may be null: nothing is remembered.
    CCardReadManager(UICommonMdl::ILocalConfig* pConfig, QWidget* pParent);
    ~CCardReadManager() override;

    void accept() override;

Q_SIGNALS:
    void SignalReaderChosen(int nReaderType, const QString& sReaderName);

private:
    void FindReaders();

    std::unique_ptr<Ui::CCardReadManager> m_pUi;
    UICommonMdl::ILocalConfig* m_pConfig;
    CardReader::CardIssuer m_issuer;
    QString m_sRemembered; ///< name of the reader that is remembered, there or not
};

} // namespace BasicInfoManagerUI
