#pragma once

#include <QImage>
#include <QObject>

#include <functional>
#include <memory>

class QWidget;

namespace BasicInfoManagerUI {

/// A camera of this machine that takes pictures. User-interface thread.
class CCameraSource : public QObject
{
    Q_OBJECT

public:
    using Factory = std::function<std::unique_ptr<CCameraSource>()>;

    /// The machine's own camera, unless the factory was replaced.
    static std::unique_ptr<CCameraSource> Create();
    /// Replaces what Create makes; null: the machine's own camera again.
    static void SetFactory(Factory factory);

    /// What shows the picture while it moves; belongs to pParent.
    virtual QWidget* MakeViewfinder(QWidget* pParent) = 0;
    /// Answered by SignalReady or SignalFailed, also later when the camera goes.
    virtual void Start() = 0;
    /// Answered by SignalPicture or SignalFailed.
    virtual void Take() = 0;

Q_SIGNALS:
    void SignalReady();
    void SignalPicture(const QImage& image);
    /// sText is translated.
    void SignalFailed(const QString& sText);
};

} // namespace BasicInfoManagerUI
