#include "CCameraSource.h"

#include <QCamera>
#include <QCameraImageCapture>
#include <QCameraInfo>
#include <QCameraViewfinder>
#include <QCoreApplication>
#include <QTemporaryDir>

namespace BasicInfoManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CCameraSource)
};

/// The default camera, through the system's multimedia services.
class SystemCamera : public CCameraSource
{
public:
    QWidget* MakeViewfinder(QWidget* pParent) override
    {
        m_pViewfinder = new QCameraViewfinder(pParent);
        return m_pViewfinder;
    }

    void Start() override
    {
        if (QCameraInfo::availableCameras().isEmpty()) {
            Q_EMIT SignalFailed(Text::tr("No camera was found."));
            return;
        }
        m_pCamera = std::make_unique<QCamera>();
        m_pCapture = std::make_unique<QCameraImageCapture>(m_pCamera.get());
        Connect();
        m_pCamera->setViewfinder(m_pViewfinder);
        m_pCamera->setCaptureMode(QCamera::CaptureStillImage);
        m_bBuffer = m_pCapture->isCaptureDestinationSupported(QCameraImageCapture::CaptureToBuffer);
        if (m_bBuffer)
            m_pCapture->setCaptureDestination(QCameraImageCapture::CaptureToBuffer);
        m_pCamera->start();
    }

    void Take() override
    {
        // What the service cannot keep in memory must not stay on the disk.
        m_pCapture->capture(m_bBuffer ? QString() : m_folder.filePath(QStringLiteral("picture.jpg")));
    }

private:
    void Connect()
    {
        connect(m_pCamera.get(), &QCamera::errorOccurred, this,
            [this] { Q_EMIT SignalFailed(m_pCamera->errorString()); });
        connect(m_pCapture.get(), &QCameraImageCapture::readyForCaptureChanged, this, [this](bool bReady) {
            if (bReady)
                Q_EMIT SignalReady();
        });
        connect(m_pCapture.get(), &QCameraImageCapture::imageCaptured, this,
            [this](int, const QImage& image) { Q_EMIT SignalPicture(image); });
        connect(m_pCapture.get(),
            qOverload<int, QCameraImageCapture::Error, const QString&>(&QCameraImageCapture::error), this,
            [this](int, QCameraImageCapture::Error, const QString& sText) { Q_EMIT SignalFailed(sText); });
    }

    QCameraViewfinder* m_pViewfinder = nullptr;
    QTemporaryDir m_folder;
    bool m_bBuffer = false;
    std::unique_ptr<QCamera> m_pCamera;
    std::unique_ptr<QCameraImageCapture> m_pCapture;
};

CCameraSource::Factory& CurrentFactory()
{
    static CCameraSource::Factory s_factory;
    return s_factory;
}

} // namespace

std::unique_ptr<CCameraSource> CCameraSource::Create()
{
    return CurrentFactory() ? CurrentFactory()() : std::make_unique<SystemCamera>();
}

void CCameraSource::SetFactory(Factory factory)
{
    CurrentFactory() = std::move(factory);
}

} // namespace BasicInfoManagerUI
