#pragma once

#include <QComboBox>
#include <QPointer>

#include <functional>

namespace Common {
class CTreeChoice;
}
namespace UICommonMdl {
class CDepartmentModel;
}

namespace BasicInfoManagerUI {

/// A combo box that drops the tree of person groups, with a search field. It keeps its group while the tree
/// is read again. User-interface thread.
class CDepartmentComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit CDepartmentComboBox(QWidget* pParent = nullptr);
    ~CDepartmentComboBox() override;

    /// Which groups can be chosen; those that cannot are shown greyed.
    void SetChoiceRule(std::function<bool(const QModelIndex& group)> rule) { m_rule = std::move(rule); }
    /// Whether a group that the tree does not hold stays chosen; else none is then.
    void SetKeepsUnknown(bool bKeeps) { m_bKeepsUnknown = bKeeps; }
    /// sName is shown as long as the tree does not hold the group; empty: its code.
    void SetCode(const QString& sCode, const QString& sName = QString());
    /// Empty: none is chosen.
    QString GetCode() const { return m_sCode; }

    void showPopup() override;
    void hidePopup() override;

Q_SIGNALS:
    /// The user chose another group, or the chosen one is gone.
    void SignalCodeChanged();

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void wheelEvent(QWheelEvent* pEvent) override;

private:
    void MakePopup();
    void ShowText();
    void OnModelFilled();
    void OnChosen();

    UICommonMdl::CDepartmentModel* m_pModel;
    std::function<bool(const QModelIndex& group)> m_rule;
    QString m_sCode;
    QString m_sName;
    bool m_bKeepsUnknown = false;
    QPointer<QWidget> m_pPopup; ///< made on its first use
    QPointer<Common::CTreeChoice> m_pChoice;
};

} // namespace BasicInfoManagerUI
