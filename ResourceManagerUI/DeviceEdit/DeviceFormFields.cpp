#include "DeviceFormFields.h"

#include <VxGUI/VxLineEdit.h>
#include <common/COrganizationModel.h>
#include <common/CTreeComboBox.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace ResourceManagerUI::FormFields {

namespace {

/// Eats what an input method composes, and tells Enter where the line edit itself would not.
class KeyedFieldFilter : public QObject
{
public:
    explicit KeyedFieldFilter(VxGUI::VxLineEdit* pEdit)
        : QObject(pEdit)
        , m_pEdit(pEdit)
    {
    }
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override
    {
        if (pEvent->type() == QEvent::InputMethod)
            return true;
        if (pEvent->type() == QEvent::KeyPress && !m_pEdit->GetLineEdit()->hasAcceptableInput()) {
            const int nKey = static_cast<QKeyEvent*>(pEvent)->key();
            if (nKey == Qt::Key_Return || nKey == Qt::Key_Enter) {
                Q_EMIT m_pEdit->returnPressed();
                return true;
            }
        }
        return QObject::eventFilter(pWatched, pEvent);
    }

private:
    VxGUI::VxLineEdit* m_pEdit;
};

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDevAdd)
};

} // namespace

void DeclareChecks(VxGUI::VxLineEdit* pEdit, DeviceField field)
{
    for (const FieldCheck& check : GetFieldChecks(field)) {
        if (check.kind == FieldCheck::Required)
            pEdit->SetRequired(check.sMessage);
        else if (check.kind == FieldCheck::Limit)
            pEdit->SetLimit(check.rule, check.sMessage);
        else if (check.kind == FieldCheck::Forbidden)
            pEdit->SetForbidden(check.rule, check.sMessage);
    }
}

void MakeKeyedField(VxGUI::VxLineEdit* pEdit, const QString& sExpression)
{
    QLineEdit* pInner = pEdit->GetLineEdit();
    pInner->setAttribute(Qt::WA_InputMethodEnabled, false);
    pInner->installEventFilter(new KeyedFieldFilter(pEdit));
    pEdit->SetTyped(QRegularExpression(sExpression));
}

void AddChoice(QComboBox* pCombo, const QString& sText, int nCode, const QString& sKey)
{
    pCombo->addItem(sText, nCode);
    pCombo->setItemData(pCombo->count() - 1, sKey, KeyRole);
}

QString GetKey(const QComboBox* pCombo)
{
    return pCombo->currentData(KeyRole).toString();
}

void SelectKey(QComboBox* pCombo, const QString& sKey)
{
    int nIndex = pCombo->findData(sKey, KeyRole, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (nIndex < 0 && !sKey.isEmpty()) {
        AddChoice(pCombo, sKey, 0, sKey);
        nIndex = pCombo->count() - 1;
    }
    pCombo->setCurrentIndex(qMax(nIndex, pCombo->count() > 0 ? 0 : -1));
}

QString GetText(const QComboBox* pCombo, const std::string& sKey)
{
    const QString sWanted = QString::fromStdString(sKey);
    const int nIndex = pCombo->findData(sWanted, KeyRole, Qt::MatchExactly | Qt::MatchCaseSensitive);
    return nIndex < 0 ? sWanted : pCombo->itemText(nIndex).trimmed();
}

QString GetText(const QComboBox* pCombo, int nCode)
{
    const int nIndex = pCombo->findData(nCode);
    return nIndex < 0 ? QString::number(nCode) : pCombo->itemText(nIndex);
}

int GetCode(const QComboBox* pCombo)
{
    return pCombo->currentData().toInt();
}

bool SelectCode(QComboBox* pCombo, int nCode)
{
    const int nIndex = pCombo->findData(nCode);
    if (nIndex >= 0)
        pCombo->setCurrentIndex(nIndex);
    return nIndex >= 0;
}

void FillOrganizations(Common::CTreeComboBox* pCombo,
    const std::vector<GroupLogical::Organization_t>& vecOrganizations, const QString& sCode)
{
    auto* pModel = pCombo->findChild<Common::COrganizationModel*>();
    if (!pModel) {
        pModel = new Common::COrganizationModel(pCombo);
        pCombo->SetTree(pModel, Text::tr("Organization"));
        // As the record has it, also where the user does not reach it.
        pCombo->SetKeepsUnknown(true);
    }
    pModel->SetOrganizations(vecOrganizations);
    pCombo->Restore();
    const bool bKnown = pModel->FindCode(sCode).isValid();
    pCombo->SetCode(bKnown ? sCode : Common::COrganizationModel::GetCode(pModel->index(0, 0)));
}

} // namespace ResourceManagerUI::FormFields
