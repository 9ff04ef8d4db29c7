#pragma once

#include <common/CTableModel.h>

/// Rows of a made-up list: check box, name, address, remark, operations, id.
class ListTestModel : public Common::CTableModel
{
public:
    enum TestColumn : int
    {
        ColumnCheck = 0,
        ColumnName,
        ColumnAddress,
        ColumnRemark,
        ColumnOperation,
        ColumnId,
        ColumnCount
    };
    enum SortKey : int
    {
        SortByName = 7,
        SortByAddress = 9
    };

    ListTestModel()
        : CTableModel(MakeColumns(), ColumnId, ColumnCheck)
    {
    }

    /// Rows with the ids nFirst and up. Those below 1 cannot be checked.
    void Fill(int nFirst, int nRows, const QString& sRemark = QStringLiteral("Nothing to add"))
    {
        QVector<Row> vecRows;
        QSet<QString> setUncheckable;
        for (int nId = nFirst; nId < nFirst + nRows; ++nId) {
            const QString sId = QString::number(nId);
            vecRows.append({MakeItem(), MakeItem(QStringLiteral("Device ") + sId),
                MakeItem(QStringLiteral("192.168.100.") + sId), MakeItem(sRemark), MakeItem(),
                MakeItem(sId)});
            vecRows.last().first()->setData(nId * 10, KeptRole);
            if (nId < 1)
                setUncheckable.insert(sId);
        }
        SetRows(vecRows, setUncheckable);
    }

private:
    static QVector<Common::Column> MakeColumns()
    {
        using Width = Common::ColumnWidth;
        Common::Column name{QStringLiteral("Name"), true, Width::Text, SortByName};
        name.bMayHide = false;
        Common::Column remark{QStringLiteral("Remark"), true, Width::Stretch};
        remark.nMinimum = 80;
        remark.sKey = QStringLiteral("remark");
        return {{QString(), true, Width::Fixed}, name,
            {QStringLiteral("Address"), true, Width::Content, SortByAddress}, remark,
            {QStringLiteral("Operation"), true, Width::Content, Common::Column::NotSorted, false},
            {QString(), false}};
    }
};
