#include "Bench.h"
#include "RightsSource.h"

#include <VxPluginAPI/IAbstractUI.h>
#include <VxPluginAPI/IAbstractWidget.h>
#include <VxPluginAPI/IPluginAPI.h>

#include <QApplication>
#include <QMainWindow>
#include <QPluginLoader>
#include <QToolBar>
#include <QToolButton>

namespace {

constexpr int Runs = 15;
constexpr QSize WindowSize(1280, 800);

/// The entries of a user who may open everything.
std::vector<UserLogical::MenuRight_t> AllEntries()
{
    std::vector<UserLogical::MenuRight_t> vecRights;
    for (unsigned int nId = 0; nId <= 17; ++nId)
        vecRights.push_back({"", "", nId});
    return vecRights;
}

/// Shows the widget and waits until it was painted.
void ShowPainted(QWidget& widget)
{
    widget.resize(WindowSize);
    widget.show();
    QApplication::processEvents();
    widget.repaint();
}

void ShowHomePage(RightsSource& rights)
{
    QPluginLoader loader(qEnvironmentVariable("PRODUCT_BINARY_DIR")
        + QStringLiteral("/lib/plugins/libConfigManagerPlugin.so"));
    auto* pPlugin = qobject_cast<VxPluginAPI::IClientUIPluginAPI*>(loader.instance());
    pPlugin->AddAbstractResourceManager(&rights);
    pPlugin->CreateUI();
    {
        QMainWindow window;
        window.setCentralWidget(
            pPlugin->GetAbstractUI()->GetAbstractWidget("ConfigManagerPlugin")->GetWidget(&window));
        ShowPainted(window);
    }
    pPlugin->UninitPlugin();
    loader.unload();
}

void ShowEmptyWindow()
{
    QMainWindow window;
    auto* pBar = new QToolBar(&window);
    for (int i = 0; i < 15; ++i) {
        auto* pButton = new QToolButton(pBar);
        pButton->setText(QString::number(i));
        pBar->addWidget(pButton);
    }
    window.addToolBar(pBar);
    window.setCentralWidget(new QWidget(&window));
    ShowPainted(window);
}

} // namespace

std::vector<BenchResult> BenchHomePage()
{
    // The user is signed in once, before the clock runs; the home page itself sends no request.
    RightsSource rights(AllEntries());
    const Medians medians = MedianPairMs(
        Runs, [&] { ShowHomePage(rights); }, &ShowEmptyWindow);
    return {{QStringLiteral("home page: plug-in load to shown, against a window with 15 tool buttons"),
        medians.dFirst, medians.dSecond, QStringLiteral("ms"), 3.0}};
}
