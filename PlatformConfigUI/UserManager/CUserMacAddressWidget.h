#pragma once

#include <QWidget>

#include <memory>

class QStandardItemModel;
namespace Ui {
class CUserMacAddressWidget;
}

namespace PlatformConfigUI {

/// Whether an account is bound to clients, and the addresses of those. User-interface thread.
class CUserMacAddressWidget : public QWidget
{
    Q_OBJECT

public:
    explicit CUserMacAddressWidget(QWidget* pParent = nullptr);
    ~CUserMacAddressWidget() override;

    void SetRecord(bool bBound, const std::vector<std::string>& vecAddresses);
    bool IsBound() const;
    /// One entry a row, trimmed; a row that nothing was entered in is an empty text.
    std::vector<std::string> GetAddresses() const;
    void SetReadOnly(bool bReadOnly);
    /// Puts the keyboard where an address can be entered.
    void StartInput();

private:
    void OnAddClicked();
    void OnMacSelectChanged(bool bBound);
    void AddRow(const QString& sAddress);
    void UpdateRowHeights();

    std::unique_ptr<Ui::CUserMacAddressWidget> m_pUi;
    QStandardItemModel* m_pModel;
    bool m_bReadOnly = false;
};

} // namespace PlatformConfigUI
