#pragma once

#include <QSet>
#include <QSortFilterProxyModel>

#include <functional>

namespace Common {

/// The nodes of a tree whose text holds a text, whatever its case, and the nodes above them. The source is
/// filled by whole branches from its root. User-interface thread.
class CTreeFilterProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void setSourceModel(QAbstractItemModel* pSource) override;
    /// An empty text lets all through.
    void SetText(const QString& sText);
    QString GetText() const { return m_sText; }

    /// Whether a node of the source can be chosen; those that cannot are shown greyed. Null: all can.
    using ChoiceRule = std::function<bool(const QModelIndex& source)>;
    void SetChoiceRule(ChoiceRule rule) { m_rule = std::move(rule); }
    Qt::ItemFlags flags(const QModelIndex& index) const override;

protected:
    bool filterAcceptsRow(int nRow, const QModelIndex& parent) const override;

private:
    void FindMatches();
    bool AddMatches(const QModelIndex& parent);

    QString m_sText;
    /// Found in one walk over the source: Qt's recursive filter walks below every node anew.
    QSet<QModelIndex> m_setMatches;
    ChoiceRule m_rule;
};

} // namespace Common
