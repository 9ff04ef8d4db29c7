#include "RecordFields.h"

namespace Common {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(RecordFields)
};
} // namespace

QString FieldText(const std::string& sValue)
{
    return QString::fromStdString(sValue);
}

QString FieldText(const std::vector<std::string>& vecValues)
{
    QStringList listValues;
    for (const std::string& sValue : vecValues)
        listValues.append(QString::fromStdString(sValue));
    listValues.sort();
    return listValues.join(QStringLiteral(", "));
}

QString FieldText(bool bValue)
{
    return bValue ? Text::tr("Yes") : Text::tr("No");
}

QString FieldText(std::int64_t nValue)
{
    return QString::number(nValue);
}

} // namespace Common
