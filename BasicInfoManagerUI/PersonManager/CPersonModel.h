#pragma once

#include <AccessControlLogical/PersonRecords.h>
#include <common/CTableModel.h>

#include <QIcon>

Q_DECLARE_METATYPE(AccessControlLogical::PersonInfo_t)

namespace BasicInfoManagerUI {

class CPersonPhotos;

enum PersonColumn : int
{
    PersonColumnCheck = 0,
    PersonColumnPhoto,
    PersonColumnId, ///< key of every operation
    PersonColumnName,
    PersonColumnGender,
    PersonColumnType,
    PersonColumnGroup,
    PersonColumnTelephone,
    PersonColumnCards,
    PersonColumnFingerprints,
    PersonColumnPlates,
    PersonColumnOperation,
    PersonColumnCount
};

/// One page of persons. What is checked on other pages stays checked.
class CPersonModel : public Common::CTableModel
{
    Q_OBJECT

public:
    /// Side of a photo in the list, in pixels.
    static constexpr int PhotoSide = 32;

    explicit CPersonModel(QObject* pParent = nullptr);

    void SetPersons(const std::vector<AccessControlLogical::PersonInfo_t>& vecPersons);
    /// Null when the page has no such person. Valid until the next change.
    const AccessControlLogical::PersonInfo_t* FindPerson(const QString& sId) const;
    /// Those of this page first; the others as they were seen last.
    std::vector<AccessControlLogical::PersonInfo_t> GetCheckedPersons() const;

private:
    void OnPicture(const QString& sUrl);

    std::vector<AccessControlLogical::PersonInfo_t> m_vecPersons; ///< in the order of the rows
    CPersonPhotos* m_pPhotos;
    QIcon m_noPhotoIcon;
};

} // namespace BasicInfoManagerUI
