#include "Look.h"
#include "PageDriver.h"

#include <Trv/QSkin.h>
#include <VxGUI/VxLineEdit.h>
#include <VxGUI/VxMessageBox.h>
#include <VxGUI/VxNotification.h>

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDirIterator>
#include <QLabel>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTreeView>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace {

/// What the style sheet of the client makes of real widgets. Every rule that Qt cannot read warns, and so
/// fails the test.
class SkinLook : public testing::TestWithParam<Look>
{
protected:
    LookScope m_look{GetParam()};
};

TEST_P(SkinLook, ButtonsTellTheirRoleAndTheirState)
{
    for (const char* const pszRole : {"", "primary", "danger", "flat"}) {
        SCOPED_TRACE(pszRole);
        QDialog window;
        auto* const pLayout = new QVBoxLayout(&window);
        auto* const pOther = new QPushButton(QStringLiteral("Other"), &window);
        auto* const pButton = new QPushButton(QStringLiteral("Delete"), &window);
        for (QPushButton* const pEach : {pOther, pButton})
            pLayout->addWidget(pEach);
        const PageDriver driver(window, m_look.Scaled({300, 160}));
        window.activateWindow();
        pOther->setFocus();
        const auto setRole = [pButton](const char* pszName) {
            pButton->setProperty("role", QLatin1String(pszName));
            pButton->style()->unpolish(pButton);
            pButton->style()->polish(pButton);
        };
        std::vector<LookState> vecStates{{"another role", [&] { setRole(*pszRole ? "" : "primary"); }},
            {"plain", [&] { setRole(pszRole); }}, {"pressed", [&] { pButton->setDown(true); }},
            {"focus",
                [&] {
                    pButton->setDown(false);
                    pButton->setFocus(Qt::TabFocusReason);
                }},
            {"disabled", [&] { pButton->setEnabled(false); }}};
        ExpectToldApart(*pButton, vecStates);
        pButton->setEnabled(true);
        pOther->setFocus();
        m_look.ExpectReadable(window, "buttons");
    }
}

TEST_P(SkinLook, FieldTellsThatItIsRefusedAlsoWhileItHasTheFocus)
{
    QDialog window;
    auto* const pLayout = new QVBoxLayout(&window);
    auto* const pOther = new QPushButton(QStringLiteral("Other"), &window);
    auto* const pField = new VxGUI::VxLineEdit(&window);
    pLayout->addWidget(pOther);
    pLayout->addWidget(pField);
    const PageDriver driver(window, m_look.Scaled({300, 160}));
    window.activateWindow();
    const QString sHint = QStringLiteral("The name exists already.");
    // The edit alone, without the hint below it; a cursor would tell the states apart by itself.
    pField->GetLineEdit()->setReadOnly(true);
    ExpectToldApart(*pField->GetLineEdit(),
        {{"plain", [&] { pOther->setFocus(); }}, {"focus", [&] { pField->GetLineEdit()->setFocus(); }},
            {"refused with focus", [&] { pField->SetErrorHint(sHint); }},
            {"refused", [&] { pOther->setFocus(); }}, {"disabled", [&] {
                                                           pField->ClearErrorHint();
                                                           pField->setEnabled(false);
                                                       }}});
    pField->setEnabled(true);
    pField->SetErrorHint(sHint);
    m_look.ExpectReadable(window, "refused-field");
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

TEST_P(SkinLook, NotificationsTellTheirKindAndCanBeRead)
{
    using VxGUI::NotificationKind;
    QWidget window;
    const PageDriver driver(window, m_look.Scaled({500, 200}));
    const auto show = [&window](NotificationKind kind) {
        return [&window, kind] { VxGUI::VxNotification::Show(&window, QStringLiteral("Saved"), kind); };
    };
    const std::vector<LookState> vecKinds{{"information", show(NotificationKind::Information)},
        {"success", show(NotificationKind::Success)}, {"warning", show(NotificationKind::Warning)},
        {"error", show(NotificationKind::Error)}};
    ExpectToldApart(window, vecKinds);
    for (const LookState& kind : vecKinds) {
        kind.enter();
        m_look.ExpectReadable(window, kind.pszName);
    }
}

TEST_P(SkinLook, TreeTellsChecksBranchesAndSelection)
{
    QStandardItemModel model;
    auto* const pRoot = new QStandardItem(QStringLiteral("Site"));
    pRoot->setCheckable(true);
    pRoot->appendRow(new QStandardItem(QStringLiteral("Gate")));
    model.appendRow(pRoot);
    QTreeView view;
    view.setModel(&model);
    const PageDriver driver(view, m_look.Scaled({300, 200}));
    ExpectToldApart(*view.viewport(),
        {{"unchecked", [] {}}, {"checked", [&] { pRoot->setCheckState(Qt::Checked); }},
            {"checked in part", [&] { pRoot->setCheckState(Qt::PartiallyChecked); }},
            {"selected", [&] { view.setCurrentIndex(pRoot->index()); }}});
    const QRect row = view.visualRect(pRoot->index());
    const QRect branch(0, row.top(), row.left(), row.height());
    const QImage closed = view.viewport()->grab(branch).toImage();
    view.expandAll();
    EXPECT_NE(view.viewport()->grab(branch).toImage(), closed) << "an open branch looks like a closed one";
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

INSTANTIATE_TEST_SUITE_P(Every, SkinLook, EveryLook, NameOf);

} // namespace
