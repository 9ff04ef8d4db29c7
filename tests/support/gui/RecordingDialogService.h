#pragma once

#include <VxGUI/VxDialogService.h>

#include <QStringList>

#include <deque>

/// Answers questions and file choosers from a script and keeps what was shown. In use while it lives. A
/// question that the script does not expect fails the test and is answered with Cancel.
class RecordingDialogService : public VxGUI::VxDialogService
{
public:
    RecordingDialogService();
    ~RecordingDialogService() override;

    void AnswerNext(bool bOk) { m_queAnswers.push_back(bOk); }
    /// Clicks that button of the next dialog of a page's own.
    void ClickNext(const QString& sButton) { m_queClicks.push_back(sButton); }
    void ChooseNextFile(const QString& sPath) { m_queFiles.push_back(sPath); }

    /// "title: text" of everything that was shown, in order.
    const QStringList& Shown() const { return m_listShown; }
    QString LastText() const { return m_sLastText; }
    /// What the last dialog with a list listed, one line an item.
    QString LastDetails() const { return m_sLastDetails; }

    bool Question(QWidget* pParent, const QString& sTitle, const QString& sText) override;
    void Message(
        QWidget* pParent, const QString& sTitle, const QString& sText, const QString& sDetails) override;
    bool Show(QDialog* pDialog, const VxGUI::DialogSummary& summary) override;
    QString SaveFile(
        QWidget* pParent, const QString& sTitle, const QString& sProposal, const QString& sFilter) override;
    QString OpenFile(
        QWidget* pParent, const QString& sTitle, const QString& sFolder, const QString& sFilter) override;

private:
    void Record(const QString& sTitle, const QString& sText);
    QString TakeFile(const QString& sTitle, const QString& sFilter);

    VxGUI::VxDialogService* m_pBefore;
    std::deque<bool> m_queAnswers;
    std::deque<QString> m_queClicks;
    std::deque<QString> m_queFiles;
    QStringList m_listShown;
    QString m_sLastText;
    QString m_sLastDetails;
};
