#pragma once

#include "CListFrame.h"
#include "CPage.h"

class QStackedWidget;

namespace Common {

/// What a list page says of its list, translated.
struct ListTexts
{
    QString sLoading;
    QString sFailed; ///< also begins the message of a failed query
    QString sNoRight;
    QString sEmpty; ///< there is nothing, and nothing hides it
    QString sNoMatch; ///< a search or a filter lets nothing through
};

/// Base of the list pages: the frame of the list with its states, one query for what is shown, asked anew
/// when the server is back and when pushes came, and the pages that open over the list. A page adds its
/// columns, its actions and its query. User-interface thread.
class CListPage : public CPage
{
    Q_OBJECT

public:
    CListPage(UICommonMdl::CInterfaceSetManager* pInterfaceSet, const QString& sSkinFolder,
        QWidget* pParent = nullptr);

protected:
    CListFrame* GetFrame() const { return m_pFrame; }
    CToolBar* GetToolBar() const { return m_pFrame->GetToolBar(); }
    void SetTexts(const ListTexts& texts) { m_texts = texts; }

    /// At the end of the page's constructor: makes the first query, or waits for the connection.
    void Start();
    /// Asks for what the list shows now: its page, filters and sorting.
    virtual void Query() = 0;
    /// Asks for everything that the page shows, when the server is back and when the user refreshes.
    virtual void QueryAll() { QueryRows(); }
    /// Asks for what pushes made stale, a moment after QueryLater.
    virtual void QueryStale() { QueryRows(); }
    /// Whether a search or a filter may hide rows.
    virtual bool IsFiltered() const { return false; }
    /// Whether ClearFilters leads back to all rows: a list without any offers that then.
    virtual bool CanClearFilters() const { return false; }
    virtual void ClearFilters() { }

    /// Query, with the look of loading while there are no rows.
    void QueryRows();
    /// The same from the first page on: a filter changed.
    void QueryFirstPage();
    /// QueryStale in a moment; what comes meanwhile is one query.
    void QueryLater();
    /// The answer to Query. show puts its rows (none after a failure) into the list.
    void ShowAnswer(int nErrorCode, int nTotal, int nPage, const std::function<void()>& show);
    /// The list, or why there are no rows.
    void ShowListState(int nErrorCode);

    /// Needs of actions: a right, and what is said while it is missing.
    Need NeedsRight(const char* pszCode, const QString& sReason) const;

    /// Pages over the list (taken): shown in its place, one at a time.
    void AddPage(QWidget* pPage);
    void ShowPage(QWidget* pPage);
    void ShowList();
    /// Null while the list is shown.
    QWidget* GetShownPage() const;
    QStackedWidget* GetPages() const { return m_pPages; }

    void OnConnectionChanged(bool bConnected) override;
    void OnRightsChanged() override;
    /// Shows what the user may do now; also at the start and when the server is back.
    virtual void ApplyRights();

private:
    ListTexts m_texts;
    QStackedWidget* m_pPages;
    CListFrame* m_pFrame;
    QTimer* m_pQueryTimer;
    bool m_bStale = false; ///< within QueryStale
    bool m_bByPush = false; ///< the open query was made for pushes alone, and not for the user
    bool m_bAwaited = false; ///< a query is open
};

} // namespace Common
