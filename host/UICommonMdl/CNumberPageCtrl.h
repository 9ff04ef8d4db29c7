#pragma once

#include <UICommonMdl/UICommonMdlExport.h>

#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QToolButton;

namespace UICommonMdl {

/// The page-flip bar below a list: total, page size, first/previous/next/last, page number to type.
/// User-interface thread.
class UICOMMONMDL_EXPORT CNumberPageCtrl : public QWidget
{
    Q_OBJECT

public:
    explicit CNumberPageCtrl(QWidget* pParent = nullptr);

    /// Rows of all pages (0 and up) and the page that is shown; emits nothing.
    void SetTotalCount(int nTotal);
    int GetTotalCount() const { return m_nTotal; }
    /// Whether the bar tells the total itself; a list that tells it elsewhere takes it away here.
    void SetTotalShown(bool bShown);
    /// From 1; 0 while there is no row.
    int GetCurrentPage() const;
    int GetPageCount() const;
    /// Goes to that page (held within 1 and the last page) without a signal.
    void SetCurrentPage(int nPage);
    int GetPageSize() const;
    /// Takes one of the offered sizes 20, 50, 100, 200; emits nothing.
    void SetPageSize(int nPageSize);

Q_SIGNALS:
    /// The user chose another page.
    void SignalCurrentPageChanged(int nPage);
    /// The user chose another page size; the current page is 1 again.
    void SignalPageSizeChanged(int nPageSize);

private:
    void GoTo(int nPage);
    void UpdateControls();

    int m_nTotal = 0;
    int m_nPage = 1;
    QLabel* m_pTotal;
    QComboBox* m_pSize;
    QToolButton* m_pFirst;
    QToolButton* m_pPrevious;
    QLineEdit* m_pPage;
    QLabel* m_pPageCount;
    QToolButton* m_pNext;
    QToolButton* m_pLast;
};

} // namespace UICommonMdl
