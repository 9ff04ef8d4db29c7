#pragma once

#include "Column.h"

#include <QHash>
#include <QObject>
#include <QVector>

class QHeaderView;
class QModelIndex;
class QTreeView;

namespace UICommonMdl {
class ILocalConfig;
}

namespace Common {

/// Widths and visibility of a list's columns: fitted to what the rows hold, as the user dragged and chose
/// them, and remembered. A column that was dragged keeps its width; what columns need grows with the pages
/// that are turned, so that they do not jump. User-interface thread.
class CColumnLayout : public QObject
{
    Q_OBJECT

public:
    /// The view has its model and header; it owns this object.
    CColumnLayout(QTreeView* pView, const QVector<Column>& vecColumns);

    /// Takes what is remembered under "<sPageKey>/Columns" and remembers changes there. pConfig is borrowed
    /// and may be null.
    void Remember(UICommonMdl::ILocalConfig* pConfig, const QString& sPageKey);
    /// To be called when the rows are others: measures them and fits the columns.
    void Measure();
    /// Widths and columns as they come by themselves.
    void Reset();
    /// The user shows or hides a column.
    void SetShown(int nColumn, bool bShown);
    /// The columns that the user may show and hide.
    QVector<int> GetOptionalColumns() const;

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

private:
    struct State
    {
        int nContent = 0; ///< the widest that was seen
        int nDragged = 0; ///< as the user dragged it; 0: he did not
        bool bShown = true;
        bool bChosen = false; ///< shown or hidden by the user
    };

    void MeasureRows(int nColumn, int nFirst, int nLast);
    double TextWidth(const QString& sText);
    double LetterWidth(QChar letter);
    void ForgetWidths();
    int HeaderWidth(int nColumn) const;
    void Fit();
    void OnResized(int nColumn, int nBefore, int nWidth);
    void OnDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight);
    void FitToContent(int nColumn);
    void ShowColumns();
    void Load();
    void TakeHiddenColumns(const QString& sNumbers);
    void Save();
    QString GetKey(int nColumn) const;

    QTreeView* m_pView;
    QHeaderView* m_pHeader;
    // Kept, because their last events come while view and header are being destroyed.
    const QWidget* m_pViewport;
    const QWidget* m_pHeaderViewport;
    QVector<Column> m_vecColumns;
    QVector<State> m_vecStates;
    QHash<ushort, double> m_mapLetters; ///< widths
    QVector<double> m_vecLatin; ///< those of the first letters, which most texts are made of; 0: not measured
    UICommonMdl::ILocalConfig* m_pConfig = nullptr;
    QString m_sPageKey;
    bool m_bFitting = false; ///< widths are being set here, not by the user
    bool m_bPressed = false; ///< the mouse holds something of the header
    bool m_bDragged = false; ///< the user drags, until the mouse is released
};

} // namespace Common
