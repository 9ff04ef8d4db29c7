#pragma once

#include <AccessControlLogical/PersonRecords.h>

#include <QWidget>

#include <memory>

namespace Ui {
class CPersonBatchSelectUI;
}

namespace BasicInfoManagerUI {

/// The persons of a batch: shown with their number, and taken out one by one. User-interface thread.
class CPersonBatchSelectUI : public QWidget
{
    Q_OBJECT

public:
    explicit CPersonBatchSelectUI(QWidget* pParent = nullptr);
    ~CPersonBatchSelectUI() override;

    void SetPersons(const std::vector<AccessControlLogical::PersonInfo_t>& vecPersons);
    /// IDs of those that were not taken out.
    std::vector<std::string> GetPersonIds() const;
    /// Takes these out; the user is not told.
    void RemovePersons(const std::vector<std::string>& vecPersonIds);
    void SetReadOnly(bool bReadOnly);

Q_SIGNALS:
    /// The user took one out.
    void SignalChanged();

private:
    void ShowCount();

    std::unique_ptr<Ui::CPersonBatchSelectUI> m_pUi;
};

} // namespace BasicInfoManagerUI
