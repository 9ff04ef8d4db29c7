#pragma once

#include <QObject>
#include <QTimer>

#include <deque>
#include <string>

class QWidget;

namespace PlatformLogic {
class CPlatformClient;
}

namespace ClientApp {

class CMainWindow;
class CSignInDlg;

/// Opens one page after the other, writes a picture of each, and ends the program. A page is taken when no
/// request is open and nothing was painted for a moment. User-interface thread.
class CScreenshotTour : public QObject
{
    Q_OBJECT

public:
    /// client and signIn are borrowed; sFolder is created when it does not exist.
    CScreenshotTour(PlatformLogic::CPlatformClient& client, CSignInDlg& signIn, const QString& sFolder);

    /// The window is borrowed until the program ends.
    void Start(CMainWindow& window);

private:
    void SaveSignIn();
    void OpenNext();
    void OnTick();
    void Save(QWidget& widget, const QString& sName);

    PlatformLogic::CPlatformClient& m_client;
    CSignInDlg& m_signIn;
    QString m_sFolder;
    CMainWindow* m_pWindow = nullptr;
    std::deque<std::string> m_queEntries;
    QString m_sName;
    QTimer m_timer;
    int m_nQuietTicks = 0;
    int m_nTicks = 0;
};

} // namespace ClientApp
