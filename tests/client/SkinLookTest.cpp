#include "PageDriver.h"

#include <Trv/QSkin.h>
#include <VxGUI/VxLineEdit.h>
#include <VxGUI/VxMessageBox.h>
#include <VxGUI/VxNotification.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QDirIterator>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTreeView>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

/// What the style sheet of the client makes of real widgets. Every rule that Qt cannot read warns, and so
/// fails the test.
class SkinLook : public testing::TestWithParam<const char*>
{
protected:
    void SetUp() override
    {
        m_sSkin = Trv::GetSkin();
        m_sSheet = qApp->styleSheet();
        ASSERT_TRUE(Trv::SetSkin(QLatin1String(GetParam())));
        QString sSheet;
        ASSERT_TRUE(Trv::loadStyleSheet(Trv::GetSkinPath(QStringLiteral("Client.qss"), QString()), sSheet));
        qApp->setStyleSheet(sSheet);
    }
    void TearDown() override
    {
        Trv::SetSkin(m_sSkin);
        qApp->setStyleSheet(m_sSheet);
    }

    /// nSlack: difference that counts as the same, summed over the channels (thin lines are smoothed).
    static bool Shows(QWidget& widget, const char* pszToken, int nSlack = 0)
    {
        const QImage image = widget.grab().toImage();
        const QRgb wanted = Trv::GetColor(QLatin1String(pszToken)).rgb();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QRgb found = image.pixel(x, y);
                const int nOff = std::abs(qRed(found) - qRed(wanted))
                    + std::abs(qGreen(found) - qGreen(wanted)) + std::abs(qBlue(found) - qBlue(wanted));
                if (nOff <= nSlack)
                    return true;
            }
        }
        return false;
    }

private:
    QString m_sSkin;
    QString m_sSheet;
};

TEST_P(SkinLook, ButtonsTellTheirRoleTheirFocusAndThatTheyAreDisabled)
{
    QWidget window;
    auto* pLayout = new QVBoxLayout(&window);
    const struct
    {
        const char* pszRole;
        const char* pszBackground;
    } roles[] = {{"", "surface"}, {"primary", "accent"}, {"danger", "danger"}};
    QVector<QPushButton*> vecButtons;
    for (const auto& role : roles) {
        vecButtons.append(new QPushButton(QStringLiteral("Delete"), &window));
        vecButtons.last()->setProperty("role", QLatin1String(role.pszRole));
        pLayout->addWidget(vecButtons.last());
    }
    auto* pOther = new QLineEdit(&window);
    pLayout->addWidget(pOther);
    const PageDriver driver(window, {300, 240});
    window.activateWindow();
    for (int i = 0; i < vecButtons.size(); ++i) {
        SCOPED_TRACE(roles[i].pszRole);
        pOther->setFocus();
        EXPECT_TRUE(Shows(*vecButtons[i], roles[i].pszBackground));
        const QImage plain = vecButtons[i]->grab().toImage();
        vecButtons[i]->setFocus(Qt::TabFocusReason);
        EXPECT_NE(vecButtons[i]->grab().toImage(), plain) << "the focus is not seen";
        pOther->setFocus();
        vecButtons[i]->setEnabled(false);
        EXPECT_NE(vecButtons[i]->grab().toImage(), plain) << "disabled is not seen";
    }
}

TEST_P(SkinLook, TheAnswerOfAMessageBoxIsMarked)
{
    VxGUI::VxMessageBox box(
        nullptr, VxGUI::VxMessageBox::Kind::Question, QStringLiteral("Prompt"), QStringLiteral("Now?"));
    box.open();
    PageDriver::Settle();
    auto* const pOk = box.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    const QImage image = pOk->grab().toImage();
    EXPECT_EQ(image.pixelColor(8, image.height() / 2), Trv::GetColor(QStringLiteral("accent")));
    box.hide();
}

TEST_P(SkinLook, RefusedFieldIsRedAlsoWhileItHasTheFocus)
{
    VxGUI::VxLineEdit field;
    const PageDriver driver(field, {300, 80});
    field.activateWindow();
    field.GetLineEdit()->setFocus();
    PageDriver::Settle();
    EXPECT_TRUE(Shows(*field.GetLineEdit(), "focus"));
    EXPECT_FALSE(Shows(*field.GetLineEdit(), "danger"));
    field.SetErrorHint(QStringLiteral("The name exists already."));
    EXPECT_TRUE(Shows(*field.GetLineEdit(), "danger"));
    field.ClearErrorHint();
    EXPECT_FALSE(Shows(*field.GetLineEdit(), "danger"));
}

TEST_P(SkinLook, NotificationsHaveTheColourOfTheirKind)
{
    QWidget window;
    const PageDriver driver(window, {500, 200});
    const struct
    {
        VxGUI::NotificationKind kind;
        const char* pszColor;
    } kinds[] = {{VxGUI::NotificationKind::Information, "information-soft"},
        {VxGUI::NotificationKind::Success, "success-soft"},
        {VxGUI::NotificationKind::Warning, "warning-soft"}, {VxGUI::NotificationKind::Error, "danger-soft"}};
    for (const auto& kind : kinds) {
        VxGUI::VxNotification::Show(&window, QStringLiteral("Saved"), kind.kind);
        EXPECT_TRUE(Shows(window, kind.pszColor)) << kind.pszColor;
    }
}

TEST_P(SkinLook, TreeShowsChecksBranchesAndSelection)
{
    QStandardItemModel model;
    auto* pRoot = new QStandardItem(QStringLiteral("Site"));
    pRoot->setCheckable(true);
    pRoot->appendRow(new QStandardItem(QStringLiteral("Gate")));
    model.appendRow(pRoot);
    QTreeView view;
    view.setModel(&model);
    const PageDriver driver(view, {300, 200});
    EXPECT_GE(view.visualRect(pRoot->index()).height(), 32);
    EXPECT_FALSE(Shows(*view.viewport(), "accent"));
    pRoot->setCheckState(Qt::Checked);
    EXPECT_TRUE(Shows(*view.viewport(), "accent"));
    EXPECT_TRUE(Shows(*view.viewport(), "on-accent", 90)) << "the check mark is not drawn";
    const QImage closed = view.viewport()->grab().toImage();
    view.expandAll();
    EXPECT_NE(view.viewport()->grab({0, 0, 20, 32}).toImage(), closed.copy(0, 0, 20, 32))
        << "an open branch looks like a closed one";
    view.setCurrentIndex(pRoot->index());
    EXPECT_TRUE(Shows(*view.viewport(), "selected"));
}

TEST_P(SkinLook, SheetsOfPagesAreUnderstood)
{
    QDirIterator files(Trv::GetSkinPath(QString(), QString()), {QStringLiteral("*.qss")}, QDir::Files,
        QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QString sSheet;
        ASSERT_TRUE(Trv::loadStyleSheet(files.next(), sSheet));
        QWidget page;
        page.setObjectName(files.fileInfo().completeBaseName());
        page.setStyleSheet(sSheet);
        page.ensurePolished();
    }
}

INSTANTIATE_TEST_SUITE_P(Looks, SkinLook, testing::Values("light", "dark"));

} // namespace
