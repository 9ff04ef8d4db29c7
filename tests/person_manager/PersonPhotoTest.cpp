#include <PersonManager/CPersonModel.h>
#include <UICommonMdl/CPhotoManager.h>
#include <UICommonMdl/ErrorCodes.h>
#include <tests/support/fakes/FakeTransferManager.h>
#include <tests/support/gui/PageDriver.h>

#include <QIcon>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace BasicInfoManagerUI;
using AccessControlLogical::PersonInfo_t;

/// The photos of the list, fetched by a host whose transfers the test ends.
class PersonPhotos : public testing::Test
{
protected:
    void SetUp() override
    {
        Manager()->SetSource(
            &m_transfer, [] { return QStringLiteral("secret"); }, m_folder.path());
    }
    void TearDown() override { Manager()->SetSource(nullptr, {}, {}); }

    static UICommonMdl::CPhotoManager* Manager()
    {
        return UICommonMdl::CGlobalPhotoManager::GetPhotoManager();
    }
    void Show(std::initializer_list<const char*> listUrls)
    {
        std::vector<PersonInfo_t> vecPersons;
        for (const char* pszUrl : listUrls) {
            PersonInfo_t person;
            person.sPersonId = std::to_string(vecPersons.size() + 10);
            person.sPhotoUrl = pszUrl;
            vecPersons.push_back(person);
        }
        m_model.SetPersons(vecPersons);
        PageDriver::Settle();
    }
    QRgb Corner(int nRow)
    {
        const QVariant vIcon = m_model.index(nRow, PersonColumnPhoto).data(Qt::DecorationRole);
        return vIcon.value<QIcon>().pixmap(32, 32).toImage().pixel(4, 4);
    }
    bool IsRed(int nRow)
    {
        return m_model.rowCount() > nRow && qRed(Corner(nRow)) > 200 && qBlue(Corner(nRow)) < 80;
    }
    static void WriteRed(const QString& sPath)
    {
        QImage image(640, 640, QImage::Format_RGB32);
        image.fill(Qt::red);
        EXPECT_TRUE(image.save(sPath, "jpg"));
    }
    void EndDownload(bool bPicture)
    {
        if (bPicture)
            WriteRed(m_transfer.vecTransfers.back().sFilePath);
        m_transfer.Finish(bPicture ? UICommonMdl::ErrorNone : UICommonMdl::ErrorNotFound);
        PageDriver::Settle();
    }

    QTemporaryDir m_folder;
    FakeTransferManager m_transfer;
    CPersonModel m_model;
};

TEST_F(PersonPhotos, AMissingCopyIsFetchedOnceAndShownInEachRow)
{
    Show({"/photo/1", "", "/photo/1"});
    ASSERT_EQ(m_transfer.vecTransfers.size(), 1u);
    EXPECT_FALSE(IsRed(0));
    EndDownload(true);
    PageDriver::WaitFor([&] { return IsRed(0) && IsRed(2); });
    EXPECT_FALSE(IsRed(1));
    Show({"/photo/1"});
    EXPECT_TRUE(IsRed(0)) << "a decoded picture is there at once";
    EXPECT_EQ(m_transfer.vecTransfers.size(), 1u);
}

TEST_F(PersonPhotos, ADamagedCopyIsFetchedAgainButNotForEver)
{
    Show({"/photo/1"});
    QFile broken(m_transfer.vecTransfers.back().sFilePath);
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("no picture");
    broken.close();
    m_transfer.Finish(UICommonMdl::ErrorCancelled);
    PageDriver::Settle();

    Show({"/photo/1"});
    PageDriver::WaitFor([&] { return m_transfer.vecTransfers.size() == 2; });
    EndDownload(true);
    PageDriver::WaitFor([&] { return IsRed(0); });
}

TEST_F(PersonPhotos, AFailedDownloadIsTriedAgainWithTheNextPage)
{
    Show({"/photo/1"});
    EndDownload(false);
    EXPECT_EQ(m_transfer.vecTransfers.size(), 1u);
    Show({"/photo/1"});
    EXPECT_EQ(m_transfer.vecTransfers.size(), 2u);
}

TEST_F(PersonPhotos, PicturesThatComeAfterThePageAreDropped)
{
    Show({"/photo/1"});
    const QString sPath = m_transfer.vecTransfers.back().sFilePath;
    m_model.SetPersons({});
    EndDownload(true);
    {
        CPersonModel other;
        PersonInfo_t person;
        person.sPersonId = "10";
        person.sPhotoUrl = "/photo/1";
        other.SetPersons({person});
    }
    PageDriver::Settle();
    EXPECT_TRUE(QFile::exists(sPath));
}
