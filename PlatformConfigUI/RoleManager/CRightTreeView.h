#pragma once

#include <QSet>
#include <QTreeView>

#include <functional>

class QAbstractProxyModel;

namespace PlatformConfigUI {

/// A tree of rights below a filter. What is unfolded outlives a search. User-interface thread.
class CRightTreeView : public QTreeView
{
    Q_OBJECT

public:
    enum class Folding
    {
        Unfolded, ///< at first, all of it
        Folded ///< at first; what lies below may not be loaded yet
    };

    explicit CRightTreeView(QWidget* pParent = nullptr);

    /// The filter over the tree; borrowed. Called once.
    void SetFilterModel(QAbstractProxyModel* pProxy, Folding folding);
    /// Runs what changes the filter. While something is searched the ways to all matches are unfolded.
    void Filter(const std::function<void()>& change, bool bSearching);

Q_SIGNALS:
    /// The operator unfolded a node of the source.
    void SignalUnfolded(const QModelIndex& source);

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;

private:
    void OnFolding(const QModelIndex& index, bool bUnfolded);
    void Restart();
    void ShowKept();
    void UnfoldLoaded(const QModelIndex& parent);

    QAbstractProxyModel* m_pProxy = nullptr;
    Folding m_folding = Folding::Unfolded;
    /// Nodes of the source that are folded otherwise than at first while nothing is searched.
    QSet<QPersistentModelIndex> m_setOthers;
    bool m_bSearching = false;
    bool m_bKeeping = false; ///< the view changes, not what is to be kept
};

} // namespace PlatformConfigUI
