#pragma once

#include <QComboBox>
#include <QPointer>

#include <functional>

namespace UICommonMdl {
class CCodeTreeModel;
}

namespace Common {

class CTreeChoice;

/// A combo box that drops a tree with a search field. Closed it shows the name of the chosen node, and its
/// path as tool tip. It keeps its node while the tree is read again. User-interface thread.
class CTreeComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit CTreeComboBox(QWidget* pParent = nullptr);
    ~CTreeComboBox() override;

    /// The tree; borrowed, outlives the combo box or is a child of it. sName: what its nodes are, translated.
    /// Once, before anything else.
    void SetTree(UICommonMdl::CCodeTreeModel* pModel, const QString& sName);
    /// To be called when the tree has been filled anew.
    void Restore();
    /// Which nodes can be chosen; those that cannot are shown greyed.
    void SetChoiceRule(std::function<bool(const QModelIndex& node)> rule) { m_rule = std::move(rule); }
    /// Whether a node that the tree does not hold stays chosen; else none is then.
    void SetKeepsUnknown(bool bKeeps) { m_bKeepsUnknown = bKeeps; }
    /// sName is shown as long as the tree does not hold the node; empty: its code.
    void SetCode(const QString& sCode, const QString& sName = QString());
    /// What the node of that code is called; one that the tree does not hold by its code.
    QString GetName(const QString& sCode) const;
    /// Empty: none is chosen.
    QString GetCode() const { return m_sCode; }

    void showPopup() override;
    void hidePopup() override;

Q_SIGNALS:
    /// The user chose another node, or the chosen one is gone.
    void SignalCodeChanged();

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void wheelEvent(QWheelEvent* pEvent) override;

private:
    void MakePopup();
    void OnChosen();

    UICommonMdl::CCodeTreeModel* m_pModel = nullptr;
    QString m_sTreeName;
    std::function<bool(const QModelIndex& node)> m_rule;
    QString m_sCode;
    QString m_sName;
    bool m_bKeepsUnknown = false;
    QPointer<QWidget> m_pPopup; ///< made on its first use
    QPointer<CTreeChoice> m_pChoice;
};

} // namespace Common
