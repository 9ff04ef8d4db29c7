#include "PersonEditFixture.h"

#include <PersonEdit/CCameraSource.h>
#include <PersonEdit/CCutPhotoDlg.h>
#include <PersonEdit/CSnapshotDlg.h>
#include <UICommonMdl/CPhotoManager.h>
#include <VxGUI/VxEmptyState.h>

#include <QTemporaryDir>

using namespace BasicInfoManagerUI;

namespace {

/// A camera that does what the test says.
class FakeCamera : public CCameraSource
{
public:
    QWidget* MakeViewfinder(QWidget* pParent) override { return new QWidget(pParent); }
    void Start() override
    {
        if (s_sFailure.isEmpty())
            Q_EMIT SignalReady();
        else
            Q_EMIT SignalFailed(s_sFailure);
    }
    void Take() override { Q_EMIT SignalPicture(s_picture); }

    static QString s_sFailure;
    static QImage s_picture;
};
QString FakeCamera::s_sFailure;
QImage FakeCamera::s_picture;

class PersonPhoto : public PersonEditorFixture
{
protected:
    void SetUp() override
    {
        PersonEditorFixture::SetUp();
        CCameraSource::SetFactory([] { return std::make_unique<FakeCamera>(); });
        FakeCamera::s_sFailure.clear();
        FakeCamera::s_picture = MakeImage(Qt::green);
    }
    void TearDown() override
    {
        PersonEditorFixture::TearDown();
        CCameraSource::SetFactory({});
        UICommonMdl::CGlobalPhotoManager::GetPhotoManager()->SetSource(nullptr, {}, {});
    }

    static QImage MakeImage(Qt::GlobalColor color, QSize size = {400, 300})
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(color);
        return image;
    }
    QString MakeFile(const char* pszName, const QByteArray& baContent)
    {
        QFile file(m_folder.filePath(QLatin1String(pszName)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(baContent);
        return file.fileName();
    }
    QString MakePicture(Qt::GlobalColor color)
    {
        const QString sPath = m_folder.filePath(QStringLiteral("picture.jpg"));
        EXPECT_TRUE(MakeImage(color).save(sPath));
        return sPath;
    }
    void Upload(const QString& sPath)
    {
        m_dialogs.ChooseNextFile(sPath);
        Click("m_pBtnUpload");
    }
    bool WaitForDialog(const char* pszName)
    {
        return PageDriver::WaitFor([&] { return IsShown(pszName); });
    }
    std::string Status() { return LabelText("lbPhotoStatus"); }
    /// The photo that would be saved now.
    QImage Saved()
    {
        FillRequired();
        Click("m_pBtnOk");
        return QImage::fromData(
            QByteArray::fromBase64(QByteArray::fromStdString(Sent<wire::AddPerson>().sPhotoData)), "jpg");
    }

    QTemporaryDir m_folder;
};

TEST_F(PersonPhoto, UploadedPictureIsCutAndSaved)
{
    OpenAdd();
    Upload(MakePicture(Qt::red));
    EXPECT_EQ(m_dialogs.Shown().last(), QStringLiteral("Select a picture: *.jpg"));
    ASSERT_TRUE(WaitForDialog("CCutPhotoDlg"));
    ClickInDialog("CCutPhotoDlg", QDialogButtonBox::Ok);
    EXPECT_EQ(Status(), "Normal");
    EXPECT_TRUE(m_pPage->IsDirty());
    const QImage photo = Saved();
    EXPECT_EQ(photo.size(), QSize(480, 640));
    EXPECT_GT(qRed(photo.pixel(240, 320)), 240);
}

TEST_F(PersonPhoto, FilesThatAreNoPhotoAreRefused)
{
    OpenAdd();
    for (const QString& sPath :
        {MakeFile("text.jpg", "no picture"), m_folder.filePath(QStringLiteral("gone.jpg"))}) {
        Upload(sPath);
        ASSERT_TRUE(PageDriver::WaitFor([&] { return Notice() == "Failed to load picture."; }));
        EXPECT_FALSE(IsShown("CCutPhotoDlg"));
        EXPECT_TRUE(IsUsable("m_pBtnUpload"));
        VxGUI::VxNotification::Show(m_pPage.get(), QStringLiteral("-"));
    }
    EXPECT_FALSE(m_pPage->IsDirty());
    Upload(QString());
    EXPECT_TRUE(IsUsable("m_pBtnUpload")) << "the chooser was cancelled";
}

TEST_F(PersonPhoto, PictureReadForAnEarlierPersonIsDropped)
{
    OpenAdd();
    Upload(MakePicture(Qt::red));
    m_pPage->AddPerson(QStringLiteral("1001"));
    Upload(MakeFile("text.jpg", "no picture"));
    ASSERT_TRUE(PageDriver::WaitFor([&] { return Notice() == "Failed to load picture."; }));
    EXPECT_FALSE(IsShown("CCutPhotoDlg"));
}

TEST_F(PersonPhoto, FrameIsMovedByMouseAndKeys)
{
    OpenAdd();
    Upload(MakePicture(Qt::red));
    ASSERT_TRUE(WaitForDialog("CCutPhotoDlg"));
    auto* const pView = m_pDriver->Find<CPhotoFrameView>(QStringLiteral("wgtPhotoFrame"));
    EXPECT_EQ(pView->GetFrame(), QRectF(87.5, 0, 225, 300));
    QTest::keyClick(pView, Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(pView, Qt::Key_Right);
    EXPECT_EQ(pView->GetFrame(), QRectF(68.5, 0, 225, 300));
    const auto drag = [pView](const QPointF& from, const QPointF& to) {
        QTest::mousePress(pView, Qt::LeftButton, Qt::NoModifier, from.toPoint());
        QMouseEvent move(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(pView, &move);
        QTest::mouseRelease(pView, Qt::LeftButton, Qt::NoModifier, to.toPoint());
    };
    drag(pView->GetShownFrame().bottomRight(), pView->GetShownFrame().center());
    EXPECT_NEAR(pView->GetFrame().height(), 150, 3);
    EXPECT_NEAR(pView->GetFrame().width() / pView->GetFrame().height(), 0.75, 0.001);
    drag(pView->GetShownFrame().center(), QPointF(-500, 900));
    EXPECT_NEAR(pView->GetFrame().left(), 0, 0.01);
    EXPECT_NEAR(pView->GetFrame().bottom(), 300, 0.01);
    Screenshot("cut-photo-page");
    ClickInDialog("CCutPhotoDlg", QDialogButtonBox::Cancel);
    EXPECT_FALSE(m_pPage->IsDirty());
}

TEST_F(PersonPhoto, SnapshotComesFromTheCameraOrSaysWhyNot)
{
    OpenAdd();
    FakeCamera::s_sFailure = QStringLiteral("No camera was found.");
    Click("m_pBtnSnapshot");
    auto* const pDialog = m_pDriver->Find<QDialog>(QStringLiteral("CSnapshotDlg"));
    ASSERT_TRUE(pDialog);
    EXPECT_EQ(
        pDialog->findChild<VxGUI::VxEmptyState*>()->GetTitle(), QStringLiteral("The camera cannot be used."));
    EXPECT_FALSE(IsUsable("btnTakePicture"));
    FakeCamera::s_sFailure.clear();
    QTest::mouseClick(pDialog->findChild<QPushButton*>(QStringLiteral("btnStateAction")), Qt::LeftButton);
    PageDriver::Settle();
    FakeCamera::s_picture = QImage();
    Click("btnTakePicture");
    EXPECT_FALSE(IsUsable("btnTakePicture")) << "no picture came";
    QTest::mouseClick(pDialog->findChild<QPushButton*>(QStringLiteral("btnStateAction")), Qt::LeftButton);
    PageDriver::Settle();
    FakeCamera::s_picture = MakeImage(Qt::green);
    Click("btnTakePicture");
    EXPECT_FALSE(IsShown("CSnapshotDlg"));
    ClickInDialog("CCutPhotoDlg", QDialogButtonBox::Ok);
    EXPECT_GT(qGreen(Saved().pixel(240, 320)), 240);
}

TEST_F(PersonPhoto, StoredPhotoIsKeptReplacedOrDeleted)
{
    auto* const pPhotos = UICommonMdl::CGlobalPhotoManager::GetPhotoManager();
    pPhotos->SetSource(
        &m_host.transfer, [] { return QStringLiteral("token"); }, m_folder.filePath(QStringLiteral("cache")));
    Person person = MakePerson();
    person.sPhotoUrl = "/api/v1/photo/4711-8";
    OpenEdit(person);
    ASSERT_TRUE(PageDriver::WaitFor([&] { return m_host.transfer.vecTransfers.size() == 1; }));
    EXPECT_EQ(Status(), "Loading");
    EXPECT_TRUE(MakeImage(Qt::red).save(m_host.transfer.vecTransfers.back().sFilePath, "jpg"));
    m_host.transfer.Finish(UICommonMdl::ErrorNone);
    ASSERT_TRUE(PageDriver::WaitFor([&] { return Status() == "Normal"; }));
    Type("m_pEditRemark", "x");
    Click("m_pBtnOk");
    EXPECT_EQ(Sent<wire::ModifyPerson>().sPhotoUrl, person.sPhotoUrl);
    EXPECT_EQ(Sent<wire::ModifyPerson>().sPhotoData, "");
    AnswerSave<wire::ModifyPerson>(UICommonMdl::ErrorPhoto);
    EXPECT_NE(Status(), "Normal");
    Click("m_pBtnDeletePhoto");
    EXPECT_FALSE(IsUsable("m_pBtnDeletePhoto"));
    Click("m_pBtnOk");
    EXPECT_EQ(Sent<wire::ModifyPerson>().sPhotoUrl, "");
}

TEST_F(PersonPhoto, StoredPhotoThatCannotBeFetchedIsTold)
{
    Person person = MakePerson();
    person.sPhotoUrl = "/api/v1/photo/4711-9";
    OpenEdit(person);
    EXPECT_EQ(Status(), "Failed to load picture.");
    Type("m_pEditRemark", "x");
    UICommonMdl::CGlobalPhotoManager::GetPhotoManager()->SetSource(
        &m_host.transfer, [] { return QStringLiteral("token"); }, m_folder.path());
    for (const bool bConnected : {false, true}) {
        m_host.PushConnected(bConnected);
        PageDriver::Settle();
    }
    EXPECT_TRUE(PageDriver::WaitFor([&] { return !m_host.transfer.vecTransfers.empty(); }));
    Click("m_pBtnOk");
    EXPECT_EQ(Sent<wire::ModifyPerson>().sPhotoUrl, person.sPhotoUrl);
}

TEST(SystemCamera, SaysThatThereIsNone)
{
    QWidget window;
    const auto pCamera = CCameraSource::Create();
    pCamera->MakeViewfinder(&window);
    QString sFailure;
    QObject::connect(pCamera.get(), &CCameraSource::SignalFailed, &window,
        [&](const QString& sText) { sFailure = sText; });
    pCamera->Start();
    EXPECT_EQ(sFailure, QStringLiteral("No camera was found."));
}

} // namespace
