#include "CConflictDlg.h"

#include "CColumnLayout.h"
#include "CTableModel.h"
#include "Prompt.h"
#include "StyleSheet.h"

#include <VxGUI/VxDialogService.h>

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace Common {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CConflictDlg)
};

constexpr int Margin = 20;
constexpr int Width = 640;
constexpr int MostRows = 10;

QString GetQuestion()
{
    return Text::tr("Somebody else has changed this record in the meantime.");
}

QString GetText(const QString& sValue)
{
    return sValue.isEmpty() ? Text::tr("(empty)") : sValue;
}

QString GetMine(const Difference& difference)
{
    return difference.bTouched ? GetText(difference.sMine) : Text::tr("(not changed)");
}

QTreeView* MakeTable(const QVector<Difference>& vecDifferences, QWidget* pParent)
{
    auto* const pTable = new QTreeView(pParent);
    pTable->setObjectName(QStringLiteral("treeDifferences"));
    pTable->setAccessibleName(Text::tr("What differs"));
    pTable->setRootIsDecorated(false);
    pTable->setUniformRowHeights(true);
    pTable->setAllColumnsShowFocus(true);
    pTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto* const pModel = new CTableModel({{Text::tr("Field"), true, ColumnWidth::Text},
                                             {Text::tr("On the Server"), true, ColumnWidth::Stretch},
                                             {Text::tr("Yours"), true, ColumnWidth::Stretch}},
        0, -1, pTable);
    QVector<CTableModel::Row> vecRows;
    for (const Difference& difference : vecDifferences)
        vecRows.append(CTableModel::Row{CTableModel::MakeItem(difference.sField),
            CTableModel::MakeItem(GetText(difference.sTheirs).simplified()),
            CTableModel::MakeItem(GetMine(difference).simplified())});
    pModel->SetRows(vecRows);
    pTable->setModel(pModel);
    (new CColumnLayout(pTable, pModel->GetColumns()))->Measure();
    const int nRows = qBound(1, vecDifferences.size(), MostRows);
    pTable->setMinimumHeight(pTable->header()->sizeHint().height()
        + qMax(1, pTable->sizeHintForRow(0)) * nRows + 2 * pTable->frameWidth());
    return pTable;
}

QLabel* MakeLabel(const char* pszName, const QString& sText, QWidget* pParent)
{
    auto* const pLabel = new QLabel(sText, pParent);
    pLabel->setObjectName(QLatin1String(pszName));
    pLabel->setTextFormat(Qt::PlainText);
    pLabel->setWordWrap(true);
    return pLabel;
}

} // namespace

CConflictDlg::CConflictDlg(const QVector<Difference>& vecDifferences, QWidget* pParent)
    : QDialog(pParent)
{
    setObjectName(QStringLiteral("CConflictDlg"));
    setWindowTitle(Text::tr("Prompt"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* const pButtons = new QDialogButtonBox(this);
    const auto addButton = [&](const char* pszName, const QString& sText, Choice choice) {
        auto* const pButton = new QPushButton(sText, this);
        pButton->setObjectName(QLatin1String(pszName));
        pButton->setAutoDefault(false);
        pButtons->addButton(pButton, QDialogButtonBox::ActionRole);
        connect(pButton, &QAbstractButton::clicked, this, [this, choice] { Choose(choice); });
        return pButton;
    };
    addButton("btnLoadAgain", Text::tr("Load Again"), Choice::LoadAgain);
    addButton("btnSaveMine", Text::tr("Save Mine"), Choice::SaveMine);
    QPushButton* const pGoOn = addButton("btnGoOn", Text::tr("Keep Editing"), Choice::GoOn);
    SetButtonRole(pGoOn, QStringLiteral("primary"));

    auto* const pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(Margin, Margin, Margin, Margin);
    pLayout->setSpacing(12);
    pLayout->addWidget(MakeLabel("lbText", GetQuestion(), this));
    if (!vecDifferences.isEmpty())
        pLayout->addWidget(MakeTable(vecDifferences, this), 1);
    pLayout->addWidget(MakeLabel("lbChoices",
        Text::tr("\"Load Again\" shows it as it is on the server now; what you entered is lost.\n\"Save "
                 "Mine\" saves what you changed; what you did not touch stays as it is on the server."),
        this));
    pLayout->addWidget(pButtons);
    pGoOn->setDefault(true);
    pGoOn->setFocus();
    resize(Width, sizeHint().height());
}

void CConflictDlg::Choose(Choice choice)
{
    m_choice = choice;
    done(choice == Choice::GoOn ? Rejected : Accepted);
}

CConflictDlg::Choice CConflictDlg::Ask(const QVector<Difference>& vecDifferences, QWidget* pParent)
{
    auto* const pDialog = new CConflictDlg(vecDifferences, pParent);
    QStringList listLines;
    for (const Difference& difference : vecDifferences)
        listLines.append(QStringLiteral("%1: %2 | %3")
                             .arg(difference.sField, GetText(difference.sTheirs), GetMine(difference)));
    Choice choice = Choice::GoOn;
    ShowAndDelete(pDialog, {true, GetQuestion(), listLines.join(QLatin1Char('\n'))},
        [&choice, pDialog] { choice = pDialog->m_choice; });
    return choice;
}

} // namespace Common
