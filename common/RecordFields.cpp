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

void MergeKeys(std::vector<std::string>& vecKeys, const std::vector<std::string>& vecBase,
    const std::vector<std::string>& vecMine)
{
    const auto has = [](const std::vector<std::string>& vecIn, const std::string& sKey) {
        return std::find(vecIn.begin(), vecIn.end(), sKey) != vecIn.end();
    };
    vecKeys.erase(std::remove_if(vecKeys.begin(), vecKeys.end(),
                      [&](const std::string& sKey) { return has(vecBase, sKey) && !has(vecMine, sKey); }),
        vecKeys.end());
    for (const std::string& sKey : vecMine) {
        if (!has(vecBase, sKey) && !has(vecKeys, sKey))
            vecKeys.push_back(sKey);
    }
}

QString SurplusText(const std::vector<std::string>& vecOf, const std::vector<std::string>& vecOther,
    const std::function<QString(const std::string&)>& name)
{
    QStringList listNames;
    for (const std::string& sKey : vecOf) {
        if (std::find(vecOther.begin(), vecOther.end(), sKey) == vecOther.end())
            listNames.append(name ? name(sKey) : QString::fromStdString(sKey));
    }
    if (listNames.isEmpty())
        return Text::tr("(nothing more)");
    listNames.sort();
    return Text::tr("also: %1")
        .arg(name ? listNames.join(QStringLiteral(", ")) : QString::number(listNames.size()));
}

} // namespace Common
