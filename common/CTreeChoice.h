#pragma once

#include "CSearchTreeView.h"

#include <QWidget>

namespace VxGUI {
class VxSearchBox;
}

namespace Common {

/// A tree to choose a node from, with a search field above it. User-interface thread.
class CTreeChoice : public QWidget
{
    Q_OBJECT

public:
    /// sName: what the nodes are, background text of the search field and accessible name of the tree.
    explicit CTreeChoice(const QString& sName, QWidget* pParent = nullptr);

    CSearchTreeView* GetTree() const { return m_pTree; }
    /// Code of the chosen node; empty: none.
    QString GetCode() const { return m_pTree->GetCurrentCode(); }
    /// An empty search, the whole tree unfolded and that node chosen, with the keyboard in the search field.
    void Start(const QString& sCode);
    /// Searches for that text, with the cursor behind it.
    void Search(const QString& sText);
    /// Makes the first node that the search found and that can be chosen the chosen one; nothing while
    /// nothing is searched.
    void ChooseMatch();

Q_SIGNALS:
    /// A node was double-clicked, or Enter pressed on it.
    void SignalActivated();

private:
    void OnSearch(const QString& sText);
    /// Makes that node the chosen one; empty: none is.
    void Choose(const QString& sCode);

    QString m_sStart; ///< chosen before; empty: none
    VxGUI::VxSearchBox* m_pSearch;
    CSearchTreeView* m_pTree;
};

} // namespace Common
