// Turning pages of persons and searching them on the whole road: page, network, server, database and back to
// the painted rows; many persons against few.

#include "Bench.h"
#include "LiveServer.h"

#include <PersonManager/CPersonManagerCtrl.h>
#include <UICommonMdl/ILocalConfig.h>

#include <QLineEdit>
#include <QToolButton>
#include <QTreeView>

#include <array>

namespace {

constexpr int ManyPersons = 1000000;
constexpr int FewPersons = 10000;
constexpr int Groups = 1000;
constexpr int PageSize = 100;
constexpr int Turns = 40;
constexpr int Searches = 40;
constexpr int FirstId = 10000001; ///< of the seeds
constexpr int IdColumn = 2;
constexpr QSize WindowSize(1400, 900);

/// A person page with everybody in its list, signed in to a server of its own.
class PersonSite
{
public:
    explicit PersonSite(int nPersons)
        : m_live({QStringLiteral("--seed-persons"), QString::number(nPersons),
            QStringLiteral("--seed-person-groups"), QString::number(Groups)})
    {
        m_live.Config()->SetValue(QStringLiteral("PersonManager/PageSize"), PageSize);
        m_pPage = std::make_unique<BasicInfoManagerUI::CPersonManagerCtrl>(m_live.Interfaces());
        m_pPage->resize(WindowSize);
        m_pPage->show();
        m_pTable = m_pPage->findChild<QTreeView*>(QStringLiteral("m_pPersonnelListView"));
        m_pSearch = m_pPage->findChild<QLineEdit*>(QStringLiteral("m_pSearchPerson"));
        WaitUntil([this] { return m_pTable->model()->rowCount() == PageSize; });
    }

    /// From the click to the painted rows: the next page, and from the last of ten back to the first.
    void TurnPage()
    {
        const bool bBack = m_nPage == 10;
        m_nPage = bBack ? 1 : m_nPage + 1;
        const QString sBefore = FirstText();
        m_pPage
            ->findChild<QToolButton*>(bBack ? QStringLiteral("btnFirstPage") : QStringLiteral("btnNextPage"))
            ->click();
        WaitPainted([&] { return FirstText() != sBefore; });
    }

    enum class By
    {
        Id,
        Name,
        Plate
    };
    /// From Enter to the painted row: a search that nobody made before, for somebody that there is.
    void Search(By by)
    {
        // Every fourth person has a plate.
        const int nPerson = ++m_nSearch * 4 * 31 % FewPersons / 4 * 4;
        std::array<char, 16> number{};
        std::snprintf(number.data(), number.size(), "%07d", nPerson);
        const QString sNumber = QString::fromLatin1(number.data());
        const QString sId = QString::number(FirstId + nPerson);
        const QString sPrefix(QLatin1String(by == By::Name ? " " : "pl"));
        m_pSearch->setText(by == By::Id ? sId : QString(sPrefix + sNumber));
        Q_EMIT m_pSearch->returnPressed();
        // A number may be part of another person's ID too.
        WaitPainted([&] {
            return m_pTable->model()->rowCount() < PageSize
                && !m_pTable->model()
                        ->match(m_pTable->model()->index(0, IdColumn), Qt::DisplayRole, sId)
                        .isEmpty();
        });
    }

private:
    QString FirstText() const { return m_pTable->model()->index(0, IdColumn).data().toString(); }
    void WaitPainted(const std::function<bool()>& condition)
    {
        WaitUntil(condition);
        m_pTable->viewport()->repaint();
    }

    LiveServer m_live;
    std::unique_ptr<BasicInfoManagerUI::CPersonManagerCtrl> m_pPage;
    QTreeView* m_pTable = nullptr;
    QLineEdit* m_pSearch = nullptr;
    int m_nPage = 1;
    int m_nSearch = 0;
};

} // namespace

std::vector<BenchResult> BenchPersons()
{
    PersonSite many(ManyPersons);
    PersonSite few(FewPersons);
    const QString sMs = QStringLiteral("ms");
    const auto compare = [&](const char* szName, int nRuns, const std::function<void(PersonSite&)>& work) {
        const Medians medians = MedianPairMs(
            nRuns, [&] { work(many); }, [&] { work(few); });
        return BenchResult{QString::fromLatin1(szName), medians.dFirst, medians.dSecond, sMs, 1.5};
    };
    return {compare("persons: page turn with 1,000,000, against 10,000", Turns,
                [](PersonSite& site) { site.TurnPage(); }),
        compare("persons: search by ID among 1,000,000, against 10,000", Searches,
            [](PersonSite& site) { site.Search(PersonSite::By::Id); }),
        compare("persons: search by name among 1,000,000, against 10,000", Searches,
            [](PersonSite& site) { site.Search(PersonSite::By::Name); }),
        compare("persons: search by plate among 1,000,000, against 10,000", Searches,
            [](PersonSite& site) { site.Search(PersonSite::By::Plate); })};
}
