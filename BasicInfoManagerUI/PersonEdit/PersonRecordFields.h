#pragma once

#include <AccessControlLogical/PersonRecords.h>
#include <common/RecordFields.h>

namespace BasicInfoManagerUI {

/// Names what the person editor changes of a person.
void DescribePerson(Common::RecordFields<AccessControlLogical::Person_t>& fields);

} // namespace BasicInfoManagerUI
