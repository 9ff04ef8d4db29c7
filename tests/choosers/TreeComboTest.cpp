#include <common/COrganizationModel.h>
#include <common/CTreeChoice.h>
#include <common/CTreeComboBox.h>
#include <tests/support/core/QtWarnings.h>
#include <tests/support/gui/PageDriver.h>

#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <memory>

namespace {

using GroupLogical::Organization_t;

Organization_t MakeOrganization(const char* pszCode, const char* pszParent, const char* pszName)
{
    Organization_t organization;
    organization.sCode = pszCode;
    organization.sParentCode = pszParent;
    organization.sName = pszName;
    return organization;
}

class TreeCombo : public testing::Test
{
protected:
    void SetUp() override
    {
        m_pCombo = new Common::CTreeComboBox;
        m_pCombo->setObjectName(QStringLiteral("cmbTree"));
        m_pCombo->SetTree(&m_model, QStringLiteral("Organization"));
        auto* const pLayout = new QVBoxLayout(&m_window);
        pLayout->addWidget(m_pCombo);
        Fill({MakeOrganization("1", "", "Site"), MakeOrganization("11", "1", "North"),
            MakeOrganization("111", "11", "Tower"), MakeOrganization("12", "1", "North gate")});
        m_pCombo->SetCode(QStringLiteral("11"));
        m_pDriver = std::make_unique<PageDriver>(m_window, QSize(300, 80));
        m_pCombo->setFocus();
        QObject::connect(m_pCombo, &Common::CTreeComboBox::SignalCodeChanged, &m_window,
            [this] { m_listTold << m_pCombo->GetCode(); });
    }
    void Fill(const std::vector<Organization_t>& vecOrganizations)
    {
        m_model.SetOrganizations(vecOrganizations);
        m_pCombo->Restore();
    }
    Common::CTreeChoice* Popup() const { return m_pCombo->findChild<Common::CTreeChoice*>(); }
    bool IsOpen() const { return Popup() && Popup()->isVisible(); }
    /// Sends keys to what has the focus.
    static void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    static void Type(const char* pszText)
    {
        for (const char* psz = pszText; *psz; ++psz)
            QTest::keyClick(QApplication::focusWidget(), *psz);
    }

    const ExpectWarning m_popUp{QStringLiteral("This plugin does not support")};
    Common::COrganizationModel m_model;
    QWidget m_window;
    Common::CTreeComboBox* m_pCombo;
    std::unique_ptr<PageDriver> m_pDriver;
    QStringList m_listTold;
};

TEST_F(TreeCombo, ShowsTheNameClosedAndThePathAsToolTip)
{
    m_pCombo->SetCode(QStringLiteral("111"));
    EXPECT_EQ(m_pCombo->currentText(), QStringLiteral("Tower"));
    EXPECT_EQ(m_pCombo->toolTip(), QStringLiteral("Site / North / Tower"));
    Press(Qt::Key_F4);
    EXPECT_TRUE(IsOpen());
    Press(Qt::Key_Escape);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(m_pCombo->GetCode(), QStringLiteral("111"));
    EXPECT_TRUE(m_listTold.isEmpty());
}

TEST_F(TreeCombo, IsUsedByKeysAlone)
{
    Type("tow");
    ASSERT_TRUE(IsOpen());
    EXPECT_EQ(Popup()->GetCode(), QStringLiteral("111")) << "what Enter would take is seen";
    Press(Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(m_pCombo->GetCode(), QStringLiteral("111")) << "the first that the search finds";
    Press(Qt::Key_Down);
    ASSERT_TRUE(IsOpen());
    Press(Qt::Key_Return);
    EXPECT_EQ(m_pCombo->GetCode(), QStringLiteral("111")) << "nothing was searched";
    Press(Qt::Key_Down);
    Type("nor");
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(m_pCombo->GetCode(), QStringLiteral("12"));
    EXPECT_EQ(m_listTold, (QStringList{QStringLiteral("111"), QStringLiteral("12")}));
}

TEST_F(TreeCombo, WhatTheRuleForbidsIsPassedOver)
{
    m_pCombo->SetChoiceRule(
        [this](const QModelIndex& node) { return node != m_model.FindCode(QStringLiteral("11")); });
    m_pCombo->SetCode(QStringLiteral("1"));
    Type("nor");
    Press(Qt::Key_Return);
    EXPECT_EQ(m_pCombo->GetCode(), QStringLiteral("12"));
    Type("xx");
    EXPECT_EQ(Popup()->GetCode(), QString()) << "nothing that is not seen";
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Popup()->GetCode(), QStringLiteral("12"));
    Type("xx");
    Press(Qt::Key_Return);
    EXPECT_EQ(m_pCombo->GetCode(), QStringLiteral("12"));
    m_pCombo->SetCode(QString());
    Type("n");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Popup()->GetCode(), QString()) << "nothing was chosen before";
}

TEST_F(TreeCombo, KeepsItsNodeWhileTheTreeIsReadAgain)
{
    Press(Qt::Key_Down);
    Fill({MakeOrganization("1", "", "Site"), MakeOrganization("11", "1", "Northern")});
    EXPECT_EQ(m_pCombo->currentText(), QStringLiteral("Northern"));
    EXPECT_EQ(Popup()->GetCode(), QStringLiteral("11"));
    EXPECT_TRUE(m_listTold.isEmpty());
    m_pCombo->SetKeepsUnknown(true);
    Fill({MakeOrganization("1", "", "Site")});
    EXPECT_EQ(m_pCombo->GetCode(), QStringLiteral("11"));
    EXPECT_EQ(m_pCombo->currentText(), QStringLiteral("Northern")) << "as it was called";
    m_pCombo->SetKeepsUnknown(false);
    Fill({MakeOrganization("1", "", "Site")});
    EXPECT_EQ(m_pCombo->currentText(), QString());
    EXPECT_EQ(m_listTold, QStringList{QString()});
}

} // namespace
