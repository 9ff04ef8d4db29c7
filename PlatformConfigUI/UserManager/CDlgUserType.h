#pragma once

#include <common/CFilterHeaderView.h>

#include <QFrame>

class QListWidget;

namespace PlatformConfigUI {

/// The choices of a filter, popping up below a header; the one in use is marked. Deletes itself when it is
/// closed. User-interface thread.
class CDlgUserType : public QFrame
{
    Q_OBJECT

public:
    /// sTitle: what is filtered. nValue: the choice in use.
    CDlgUserType(
        const QString& sTitle, const QVector<Common::FilterOption>& vecOptions, int nValue, QWidget* pParent);

    /// Shows it with its top left corner there (global), kept on the screen.
    void PopUp(const QPoint& place);

Q_SIGNALS:
    void SignalChosen(int nValue);

private:
    void OnChosen(int nRow);

    QListWidget* m_pList;
};

} // namespace PlatformConfigUI
