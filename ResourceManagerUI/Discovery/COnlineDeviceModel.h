#pragma once

#include <RemoteConfigLogical/RemoteConfigRecords.h>

#include <QAbstractTableModel>
#include <QHash>
#include <QStringList>

#include <vector>

namespace ResourceManagerUI {

enum OnlineColumn : int
{
    OnlineColumnInit = 0, ///< with the check box
    OnlineColumnAddress,
    OnlineColumnModel,
    OnlineColumnPort,
    OnlineColumnMac,
    OnlineColumnOperation,
    OnlineColumnCount
};

/// What has become of a found device.
enum FoundState : int
{
    FoundNew = 0,
    FoundAdding, ///< it is being added
    FoundManaged ///< the platform has it already
};

/// The devices that a search found, by their keys; grows while the search runs. User-interface thread.
class COnlineDeviceModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using Devices = RemoteConfigLogical::SearchDeviceInfoVec;
    enum Role : int
    {
        SortRole = Qt::UserRole + 1,
        KeyRole,
        OperationsRole ///< the Operations of the row
    };
    enum Operations : int
    {
        OperationsNone = 0,
        OperationsInitialized,
        OperationsUninitialized
    };

    explicit COnlineDeviceModel(QObject* pParent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int nRole = Qt::DisplayRole) const override;
    QVariant headerData(int nSection, Qt::Orientation orientation, int nRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Checks; and an edited address, which asks for its change and leaves the cell as it is until then.
    bool setData(const QModelIndex& index, const QVariant& vValue, int nRole) override;

    void Clear();
    /// One notice to the views for all that are new; a device that is there is brought up to date.
    void Add(const Devices& vecDevices);
    void SetState(const QStringList& listKeys, FoundState state);
    void SetInitialized(const QStringList& listKeys);
    /// The device answers at another address from now on.
    void SetAddress(const QString& sKey, const QString& sNewIp);

    Devices GetAll() const;
    /// By address.
    Devices GetChecked() const;
    /// The device of that key alone; empty when there is none.
    Devices GetOne(const QString& sKey) const;
    void SetAllChecked(bool bChecked);
    /// Whether none, some or all rows that can be checked are.
    Qt::CheckState GetCheckSummary() const;

Q_SIGNALS:
    void SignalAddressEdited(const QString& sKey, const QString& sNewIp);

private:
    struct Row
    {
        RemoteConfigLogical::SearchDeviceInfo_t device;
        FoundState state = FoundNew;
        bool bChecked = false;
    };
    QVariant GetText(const Row& row, int nColumn) const;
    QVariant GetSortKey(const Row& row, int nColumn) const;
    void Changed(int nRow);

    std::vector<Row> m_vecRows;
    QHash<QString, int> m_mapRows;
};

} // namespace ResourceManagerUI
