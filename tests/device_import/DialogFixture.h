#pragma once

#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>
#include <tests/support/gui/RecordingDialogService.h>

#include <QDialogButtonBox>
#include <QDir>
#include <QPointer>
#include <QPushButton>

#include <gtest/gtest.h>

/// A dialog over fakes, in a window that outlives it. The driver finds the dialog's widgets as those of the
/// window.
template <class Dialog>
class DialogFixture : public testing::Test
{
protected:
    void TearDown() override { delete m_pDialog; }

    QPushButton* Ok()
    {
        return m_pDialog->template findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    }
    void ClickOk() { QTest::mouseClick(Ok(), Qt::LeftButton); }
    void Connect(bool bConnected)
    {
        m_host.PushConnected(bConnected);
        PageDriver::Settle();
    }
    void Screenshot(const char* pszName) const
    {
        const QString sFolder = qEnvironmentVariable("PRODUCT_SCREENSHOT_DIR");
        if (sFolder.isEmpty())
            return;
        QDir().mkpath(sFolder);
        EXPECT_TRUE(m_pDialog->grab().save(
            sFolder + QLatin1Char('/') + QLatin1String(pszName) + QStringLiteral(".png")));
    }
    template <class Widget>
    QString TextOf(const char* pszName)
    {
        return m_driver.Find<Widget>(QLatin1String(pszName))->text();
    }

    FakeHost m_host;
    RecordingDialogService m_dialogs;
    QWidget m_window;
    PageDriver m_driver{m_window};
    QStringList m_listNotices; ///< what the dialog told its page
    QPointer<Dialog> m_pDialog;
};
