#include "CPersonModel.h"

#include "CPersonPhotos.h"
#include "PersonEdit/PersonFieldRules.h"
#include "PersonRules.h"

#include <Trv/QSkin.h>

#include <QCoreApplication>
#include <QGuiApplication>

namespace BasicInfoManagerUI {

using AccessControlLogical::PersonInfo_t;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonManagerCtrl)
};

constexpr int NameMinimum = 140; ///< enough to tell most people apart
constexpr int GroupMinimum = 100;

QVector<Common::Column> MakeColumns()
{
    using Width = Common::ColumnWidth;
    constexpr int NotSorted = Common::Column::NotSorted;
    return {{QString(), true, Width::Fixed}, {Text::tr("Photo")}, {Text::tr("ID")},
        {Text::tr("Name"), true, Width::Stretch, NotSorted, false, NameMinimum}, {Text::tr("Gender")},
        {Text::tr("Person Type")}, {Text::tr("Group"), true, Width::Stretch, NotSorted, true, GroupMinimum},
        {Text::tr("Telephone")}, {Text::tr("Cards")}, {Text::tr("Fingerprints")},
        {Text::tr("Plate No."), true, Width::Text},
        {Text::tr("Operation"), true, Width::Content, NotSorted, false}};
}

/// The plate numbers with a blank behind each comma, as lists are written.
QString PlatesText(const std::string& sPlates)
{
    return QString::fromStdString(sPlates)
        .split(QLatin1Char(','), Qt::SkipEmptyParts)
        .join(QStringLiteral(", "));
}

} // namespace

CPersonModel::CPersonModel(QObject* pParent)
    : CTableModel(MakeColumns(), PersonColumnId, PersonColumnCheck, pParent)
    , m_pPhotos(new CPersonPhotos(qRound(PhotoSide * qGuiApp->devicePixelRatio()), this))
    , m_noPhotoIcon(Trv::GetIcon(QStringLiteral("no-photo")))
{
    KeepChecks(PersonColumnName);
    connect(m_pPhotos, &CPersonPhotos::SignalPicture, this, &CPersonModel::OnPicture);
}

void CPersonModel::SetPersons(const std::vector<PersonInfo_t>& vecPersons)
{
    m_vecPersons = vecPersons;
    QVector<Row> vecRows;
    vecRows.reserve(int(vecPersons.size()));
    for (const PersonInfo_t& person : vecPersons) {
        const QString sUrl = QString::fromStdString(person.sPhotoUrl);
        Row row{MakeItem(), MakeItem(), MakeItem(QString::fromStdString(person.sPersonId)),
            MakeItem(QString::fromStdString(person.sName)), MakeItem(GetGenderText(person.nGender)),
            MakeItem(GetPersonTypeText(person.nPersonType)),
            MakeItem(QString::fromStdString(person.sGroupName)),
            MakeItem(QString::fromStdString(person.sTelephone)), MakeItem(QString::number(person.nCards)),
            MakeItem(QString::number(person.nFingerprints)), MakeItem(PlatesText(person.sPlates)),
            MakeItem()};
        row.first()->setData(QVariant::fromValue(person), KeptRole);
        const QPixmap picture = m_pPhotos->GetPicture(sUrl);
        row[PersonColumnPhoto]->setIcon(picture.isNull() ? m_noPhotoIcon : QIcon(picture));
        vecRows.append(row);
    }
    SetRows(vecRows);
    for (const PersonInfo_t& person : m_vecPersons)
        m_pPhotos->Request(QString::fromStdString(person.sPhotoUrl));
}

void CPersonModel::OnPicture(const QString& sUrl)
{
    const std::string sWanted = sUrl.toStdString();
    const QIcon picture(m_pPhotos->GetPicture(sUrl));
    for (std::size_t n = 0; n < m_vecPersons.size(); ++n) {
        if (m_vecPersons[n].sPhotoUrl == sWanted)
            item(int(n), PersonColumnPhoto)->setIcon(picture);
    }
}

const PersonInfo_t* CPersonModel::FindPerson(const QString& sId) const
{
    const int nRow = FindRow(sId);
    return nRow < 0 ? nullptr : &m_vecPersons[std::size_t(nRow)];
}

std::vector<PersonInfo_t> CPersonModel::GetCheckedPersons() const
{
    std::vector<PersonInfo_t> vecPersons;
    const QVector<Common::CheckedItem> vecChecked = GetChecked();
    for (const Common::CheckedItem& checked : vecChecked)
        vecPersons.push_back(checked.vData.value<PersonInfo_t>());
    return vecPersons;
}

} // namespace BasicInfoManagerUI
