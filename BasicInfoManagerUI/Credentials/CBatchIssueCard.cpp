#include "CBatchIssueCard.h"

namespace BasicInfoManagerUI {

CBatchIssueCard::CBatchIssueCard(UICommonMdl::CInterfaceSetManager*, QWidget* pParent)
    : QWidget(pParent)
{
}

void CBatchIssueCard::SetPersons(const std::vector<AccessControlLogical::PersonInfo_t>&) { }
void CBatchIssueCard::SetConnected(bool) { }
bool CBatchIssueCard::IsDirty() const
{
    return false;
}

} // namespace BasicInfoManagerUI
