#pragma once

#include <CardReader/SimulatedCardReader.h>
#include <FingerprintReader/SimulatedFingerprintReader.h>
#include <VxGUI/VxLineEdit.h>
#include <VxGUI/VxNotification.h>
#include <common/CRowButtonDelegate.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>
#include <tests/support/gui/RecordingDialogService.h>

#include <QLineEdit>
#include <QTreeView>

#include <gmock/gmock.h>

/// A page of credentials over fakes and simulated readers.
template <class Page>
class CredentialFixture : public testing::Test
{
protected:
    CredentialFixture()
    {
        CardReader::Simulation::Reset();
        FingerprintReader::Simulation::Reset();
    }
    ~CredentialFixture() override
    {
        CardReader::Simulation::Reset();
        FingerprintReader::Simulation::Reset();
    }

    QString Notice() { return VxGUI::VxNotification::CurrentText(&m_page); }
    QString HintOf(const char* pszField)
    {
        return m_driver.template Find<VxGUI::VxLineEdit>(QLatin1String(pszField))->GetErrorHint();
    }
    /// Clicks the nth button of the row in the last column; a failure when the row does not have it.
    void PressRowButton(QTreeView* pTable, const QString& sRow, int nButton)
    {
        const QModelIndex row = m_driver.FindRow(pTable, 0, sRow);
        const QModelIndex index = row.siblingAtColumn(pTable->model()->columnCount() - 1);
        pTable->scrollTo(index);
        const auto* const pButtons =
            qobject_cast<Common::CRowButtonDelegate*>(pTable->itemDelegateForColumn(index.column()));
        const QRect rect =
            pButtons->GetButtonRect(pTable->visualRect(index), pTable->fontMetrics(), nButton, index);
        ASSERT_TRUE(rect.isValid()) << "the row has no such button";
        m_driver.ClickAt(pTable, rect.center());
        PageDriver::Settle();
    }

    FakeHost m_host;
    RecordingDialogService m_dialogs;
    Page m_page{&m_host.interfaceSet};
    PageDriver m_driver{m_page, {1000, 700}};
};
