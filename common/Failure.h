#pragma once

#include <QString>
#include <QVector>

namespace Common {

/// What failed in a batch, and why.
struct Failure
{
    QString sName;
    QString sReason; ///< empty: the name says it
};

/// One line a failure, "name: reason".
QString GetLines(const QVector<Failure>& vecFailures);

} // namespace Common
