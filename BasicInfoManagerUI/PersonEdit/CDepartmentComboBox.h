#pragma once

#include <QComboBox>

class QTreeView;
namespace UICommonMdl {
class CDepartmentModel;
}

namespace BasicInfoManagerUI {

/// The group of a person: the field drops the tree of person groups. It keeps its group while the tree is
/// read again, and one that the tree lacks too. User-interface thread.
class CDepartmentComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit CDepartmentComboBox(QWidget* pParent = nullptr);

    QString GetCode() const { return m_sCode; }
    /// sName is shown as long as the tree does not hold the group; empty: its code.
    void SetCode(const QString& sCode, const QString& sName = QString());

    void showPopup() override;
    void hidePopup() override;

Q_SIGNALS:
    /// The user chose a group.
    void SignalCodeChosen(const QString& sCode);

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void wheelEvent(QWheelEvent* pEvent) override;

private:
    void MakePopup();
    void Choose(const QModelIndex& index);
    void ShowText();

    UICommonMdl::CDepartmentModel* m_pModel;
    QFrame* m_pPopup = nullptr;
    QTreeView* m_pTree = nullptr;
    QString m_sCode;
    QString m_sName;
};

} // namespace BasicInfoManagerUI
