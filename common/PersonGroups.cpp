#include "PersonGroups.h"

#include "CTreeComboBox.h"

#include <UICommonMdl/CDepartmentModelManager.h>

#include <QCoreApplication>

namespace Common {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(PersonGroups)
};
} // namespace

void ShowPersonGroups(CTreeComboBox* pCombo)
{
    using UICommonMdl::CDepartmentModelManager;
    CDepartmentModelManager* const pGroups = CDepartmentModelManager::Instance();
    pCombo->SetTree(pGroups->GetDepartmentModel(), Text::tr("Person Group"));
    QObject::connect(
        pGroups, &CDepartmentModelManager::SignalDepartmentModelFinish, pCombo, &CTreeComboBox::Restore);
}

} // namespace Common
