#include "CSkinIconEngine.h"

#include <Trv/QSkin.h>

#include <VxGUI/VxSingleton.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QMutex>

namespace Trv {

namespace {

const QString CommonFolder = QStringLiteral("common");

/// The skin in use. The lock guards the three members; icons and colours are kept until the skin changes.
struct SkinState
{
    QMutex mutex;
    QString sRoot;
    QString sSkin = QStringLiteral("light");
    QHash<QString, QIcon> hashIcons;
    QHash<QString, QColor> hashColors;
};

SkinState& State()
{
    return *VxGUI::VxSingleton<SkinState>::Instance();
}

QString FindRoot()
{
    const QString sProgram = QCoreApplication::applicationDirPath();
    for (const char* const pszFolder : {"/../skin", "/../share/securityclient/skin"}) {
        QString sFolder = QDir::cleanPath(sProgram + QLatin1String(pszFolder));
        if (QDir(sFolder).exists())
            return sFolder;
    }
    return QDir::cleanPath(sProgram + QStringLiteral("/../skin"));
}

/// The lock is held.
const QString& Root(SkinState& state)
{
    if (state.sRoot.isEmpty())
        state.sRoot = FindRoot();
    return state.sRoot;
}

/// The lock is held.
QString SkinFolder(SkinState& state)
{
    return Root(state) + QLatin1Char('/') + state.sSkin;
}

void ReadColors(const QString& sPath, QHash<QString, QColor>& hashColors)
{
    QFile file(sPath);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return;
    while (!file.atEnd()) {
        const QString sLine = QString::fromUtf8(file.readLine()).trimmed();
        const QColor color(sLine.section(QLatin1Char('='), 1).trimmed());
        if (color.isValid())
            hashColors.insert(sLine.section(QLatin1Char('='), 0, 0).trimmed(), color);
    }
}

} // namespace

QString GetSkinPath(const QString& sFile, const QString& sFolder)
{
    SkinState& state = State();
    const QMutexLocker lock(&state.mutex);
    QString sPath = SkinFolder(state);
    if (!sFolder.isEmpty())
        sPath += QLatin1Char('/') + sFolder;
    return sPath + QLatin1Char('/') + sFile;
}

bool loadStyleSheet(const QString& sPath, QString& sStyleSheet)
{
    QFile file(sPath);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    QString sText = QString::fromUtf8(file.readAll());
    if (sText.trimmed().isEmpty())
        return false;
    // Pictures are named from the skin's folder, so that the same sheet serves wherever the skins lie.
    SkinState& state = State();
    const QMutexLocker lock(&state.mutex);
    sText.replace(QStringLiteral("url(skin:"), QStringLiteral("url(") + SkinFolder(state) + QLatin1Char('/'));
    sStyleSheet = sText;
    return true;
}

QIcon GetIcon(const QString& sName)
{
    const QString sPath = GetSkinPath(sName + QStringLiteral(".svg"), CommonFolder);
    SkinState& state = State();
    const QMutexLocker lock(&state.mutex);
    const auto it = state.hashIcons.constFind(sPath);
    if (it != state.hashIcons.constEnd())
        return *it;
    QIcon icon = QFile::exists(sPath) ? QIcon(new CSkinIconEngine(sPath)) : QIcon();
    if (icon.isNull())
        qWarning("The skin has no icon \"%s\"", qPrintable(sName));
    state.hashIcons.insert(sPath, icon);
    return icon;
}

QColor GetColor(const QString& sToken)
{
    SkinState& state = State();
    const QMutexLocker lock(&state.mutex);
    if (state.hashColors.isEmpty())
        ReadColors(SkinFolder(state) + QStringLiteral("/tokens.ini"), state.hashColors);
    return state.hashColors.value(sToken);
}

QStringList GetSkins()
{
    SkinState& state = State();
    const QMutexLocker lock(&state.mutex);
    QStringList listSkins;
    for (const QString& sName : QDir(Root(state)).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (QFile::exists(Root(state) + QLatin1Char('/') + sName + QStringLiteral("/tokens.ini")))
            listSkins << sName;
    }
    return listSkins;
}

QString GetSkin()
{
    SkinState& state = State();
    const QMutexLocker lock(&state.mutex);
    return state.sSkin;
}

bool SetSkin(const QString& sSkin)
{
    if (!GetSkins().contains(sSkin))
        return false;
    SkinState& state = State();
    const QMutexLocker lock(&state.mutex);
    state.sSkin = sSkin;
    state.hashIcons.clear();
    state.hashColors.clear();
    return true;
}

void SetSkinRoot(const QString& sFolder)
{
    SkinState& state = State();
    const QMutexLocker lock(&state.mutex);
    state.sRoot = sFolder;
    state.hashIcons.clear();
    state.hashColors.clear();
}

} // namespace Trv
