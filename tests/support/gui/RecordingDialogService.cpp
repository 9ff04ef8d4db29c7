#include "RecordingDialogService.h"

#include <QAbstractButton>
#include <QDialog>

#include <gtest/gtest.h>

RecordingDialogService::RecordingDialogService()
    : m_pBefore(SetCurrent(this))
{
}

RecordingDialogService::~RecordingDialogService()
{
    SetCurrent(m_pBefore);
    EXPECT_TRUE(m_queAnswers.empty()) << "a question that was expected did not come";
    EXPECT_TRUE(m_queClicks.empty()) << "a dialog that was expected did not come";
    EXPECT_TRUE(m_queFiles.empty()) << "a file chooser that was expected did not come";
}

void RecordingDialogService::Record(const QString& sTitle, const QString& sText)
{
    m_listShown << sTitle + QStringLiteral(": ") + sText;
    m_sLastText = sText;
}

bool RecordingDialogService::Question(QWidget*, const QString& sTitle, const QString& sText)
{
    Record(sTitle, sText);
    if (m_queAnswers.empty()) {
        ADD_FAILURE() << "unexpected question: " << qPrintable(sText);
        return false;
    }
    const bool bOk = m_queAnswers.front();
    m_queAnswers.pop_front();
    return bOk;
}

void RecordingDialogService::Message(
    QWidget*, const QString& sTitle, const QString& sText, const QString& sDetails)
{
    Record(sTitle, sDetails.isEmpty() ? sText : sText + QLatin1Char('\n') + sDetails);
}

bool RecordingDialogService::Show(QDialog* pDialog, const VxGUI::DialogSummary& summary)
{
    m_sLastDetails = summary.sDetails;
    if (!m_queClicks.empty()) {
        Record(pDialog->windowTitle(), summary.sText);
        auto* const pButton = pDialog->findChild<QAbstractButton*>(m_queClicks.front());
        m_queClicks.pop_front();
        EXPECT_TRUE(pButton) << "the dialog has no such button";
        if (pButton)
            pButton->click();
        return pDialog->result() == QDialog::Accepted;
    }
    if (summary.bQuestion)
        return Question(pDialog, pDialog->windowTitle(), summary.sText);
    Message(pDialog, pDialog->windowTitle(), summary.sText, summary.sDetails);
    return false;
}

QString RecordingDialogService::TakeFile(const QString& sTitle, const QString& sFilter)
{
    Record(sTitle, sFilter);
    if (m_queFiles.empty()) {
        ADD_FAILURE() << "unexpected file chooser: " << qPrintable(sTitle);
        return {};
    }
    const QString sPath = m_queFiles.front();
    m_queFiles.pop_front();
    return sPath;
}

QString RecordingDialogService::SaveFile(
    QWidget*, const QString& sTitle, const QString&, const QString& sFilter)
{
    return TakeFile(sTitle, sFilter);
}

QString RecordingDialogService::OpenFile(
    QWidget*, const QString& sTitle, const QString&, const QString& sFilter)
{
    return TakeFile(sTitle, sFilter);
}
