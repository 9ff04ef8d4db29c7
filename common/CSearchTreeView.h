#pragma once

#include "CTreeFilterProxyModel.h"

#include <QSet>
#include <QTreeView>

namespace UICommonMdl {
class CCodeTreeModel;
}

namespace Common {

/// A tree of coded nodes that can be searched. What is unfolded, current and in view is known by code, so
/// that it outlives a search and a tree that is filled anew. User-interface thread.
class CSearchTreeView : public QTreeView
{
    Q_OBJECT

public:
    explicit CSearchTreeView(QWidget* pParent = nullptr);

    /// The tree to show; borrowed, outlives the view. Called once.
    void SetTreeModel(UICommonMdl::CCodeTreeModel* pModel);
    /// Whether the first root becomes current when nothing else is. Otherwise nothing is, until somebody
    /// chooses.
    void SetAlwaysCurrent(bool bAlways) { m_bAlwaysCurrent = bAlways; }
    /// Which nodes can be chosen.
    void SetChoiceRule(CTreeFilterProxyModel::ChoiceRule rule) { m_pProxy->SetChoiceRule(std::move(rule)); }
    /// Shows the nodes whose text holds sText, whatever its case, and the way to them; an empty text shows
    /// all.
    void SetFilter(const QString& sText);
    /// To be called when the model has been filled anew: brings back what was unfolded, current and in view.
    void Restore();

    /// Code of the current node, also while the search hides it; empty: none.
    QString GetCurrentCode() const { return m_sCurrent; }
    /// Makes that node current; an unknown code changes nothing.
    void SelectCode(const QString& sCode);
    void ClearCurrent();
    /// The node as this view shows it; invalid when it does not.
    QModelIndex FindCode(const QString& sCode) const;
    /// The first node that the search found and that can be chosen; invalid while nothing is searched.
    QModelIndex FindMatch() const;

Q_SIGNALS:
    /// GetCurrentCode is another one. The index is invalid when the search hides the node, or nothing is
    /// current.
    void SignalCurrentIndexChanged(const QModelIndex& index);

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void OnAboutToBeRemoved(const QModelIndex& parent);
    void OnExpanded(const QModelIndex& index, bool bExpanded);
    void ShowKept();
    void ChangeCurrent(const QString& sCode);
    void ShowCurrent();

    UICommonMdl::CCodeTreeModel* m_pModel = nullptr;
    CTreeFilterProxyModel* m_pProxy;
    QSet<QString> m_setExpanded; ///< codes that are unfolded while nothing is searched
    QString m_sCurrent;
    int m_nScroll = 0;
    bool m_bAlwaysCurrent = false;
    bool m_bFilled = false; ///< the tree was there once
    bool m_bKeeping = false; ///< the view changes, not what is to be kept
};

} // namespace Common
