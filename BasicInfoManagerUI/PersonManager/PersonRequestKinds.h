#pragma once

namespace BasicInfoManagerUI {

/// What the person page's requests are for.
enum PersonRequestKind : int
{
    KindPersonList = 1,
    KindBatch, ///< deletes or moves persons
    KindReissue,
    KindDepartmentTree,
    KindDeleteDepartment
};

} // namespace BasicInfoManagerUI
