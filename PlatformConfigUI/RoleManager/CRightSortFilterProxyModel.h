#pragma once

#include <QSortFilterProxyModel>

#include <vector>

namespace PlatformConfigUI {

class CRightModel;

/// The rights of a tree that may be given and match a text. The source is a CRightModel.
/// User-interface thread.
class CRightSortFilterProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void setSourceModel(QAbstractItemModel* pSource) override;

    /// RightFilterMode, 2 at first; filters the tree again.
    void SetMode(int nMode);
    /// Part of the text of the filter key column, whatever its case, or the beginning of the code; empty:
    /// all.
    void SetText(const QString& sText);
    QString GetText() const { return m_sText; }
    /// Whether only rights that a role gives are shown, with those above them.
    void SetGivenOnly(bool bGivenOnly);

protected:
    bool filterAcceptsRow(int nRow, const QModelIndex& parent) const override;

private:
    bool Accepts(int nNode) const;
    bool Decide(int nNode) const;
    bool MatchesText(int nNode) const;
    bool MatchesItself(int nNode) const;
    void FilterAgain();
    void Forget();

    const CRightModel* m_pRights = nullptr;
    int m_nMode = 2;
    QString m_sText;
    bool m_bGivenOnly = false;
    /// What was decided since the filter was set, a node; below 0: not yet.
    mutable std::vector<signed char> m_vecDecided;
};

} // namespace PlatformConfigUI
