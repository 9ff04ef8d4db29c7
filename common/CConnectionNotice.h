#pragma once

#include <QLabel>

namespace Common {

class CSession;

/// Says on a page or in a dialog that the connection to the server is lost, for as long as it is; hidden
/// otherwise. Its look stands in the client's style sheet, once. User-interface thread.
class CConnectionNotice : public QLabel
{
    Q_OBJECT

public:
    explicit CConnectionNotice(QWidget* pParent = nullptr);

    /// Follows that session (borrowed, outlives the notice) from now on; called once.
    void Watch(const CSession& session);
};

} // namespace Common
