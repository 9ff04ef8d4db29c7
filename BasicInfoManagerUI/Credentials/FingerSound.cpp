#include "FingerSound.h"

#include <Trv/QSkin.h>

#include <QApplication>
#include <QAudioDeviceInfo>
#include <QFile>
#include <QSound>

namespace BasicInfoManagerUI {

void PlayFingerSound(int nPress)
{
    const QString sPath = Trv::GetSkinPath(
        QStringLiteral("finger-%1.wav").arg(nPress), QStringLiteral("BasicInfoManagerUI/Personnel"));
    if (!QFile::exists(sPath))
        QApplication::beep();
    else if (!QAudioDeviceInfo::availableDevices(QAudio::AudioOutput).isEmpty())
        QSound::play(sPath);
}

} // namespace BasicInfoManagerUI
