#pragma once

#include <QCoreApplication>
#include <QStringList>
#include <QVector>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace Common {

/// A field that two operators left different.
struct Difference
{
    QString sField;
    QString sTheirs; ///< what the server has now
    QString sMine; ///< what was entered
    bool bTouched = true; ///< the operator changed the field
};

/// A member of a record as an operator reads it.
QString FieldText(const std::string& sValue);
QString FieldText(const std::vector<std::string>& vecValues);
QString FieldText(bool bValue);
QString FieldText(std::int64_t nValue);
inline QString FieldText(int nValue)
{
    return FieldText(std::int64_t(nValue));
}

/// Gives the keys what mine has more than base, and takes what it has less.
void MergeKeys(std::vector<std::string>& vecKeys, const std::vector<std::string>& vecBase,
    const std::vector<std::string>& vecMine);
/// The keys that only the first list has, as names or, without them, as their number.
QString SurplusText(const std::vector<std::string>& vecOf, const std::vector<std::string>& vecOther,
    const std::function<QString(const std::string&)>& name);

/// The fields of a record that an editor changes, under the names that its form gives them: compares and
/// merges records field by field. The order of the values in a list does not count.
template <class R>
class RecordFields
{
public:
    /// text: how the value is shown; absent: as it is.
    template <class T>
    void Add(const QString& sName, T R::*pMember, std::function<QString(const T&)> text = {})
    {
        Field field;
        field.sName = sName;
        field.isSame = [pMember](
                           const R& a, const R& b) { return Ordered(a.*pMember) == Ordered(b.*pMember); };
        field.copy = [pMember](R& to, const R& from) { to.*pMember = from.*pMember; };
        field.text = [pMember, text](const R& record) {
            return text ? text(record.*pMember) : FieldText(record.*pMember);
        };
        m_vecFields.push_back(std::move(field));
    }
    /// A list of keys, compared and merged key by key; name: what a key is called, absent: only how many
    /// differ is told.
    void AddKeys(const QString& sName, std::vector<std::string> R::*pMember,
        std::function<QString(const std::string&)> name = {})
    {
        Add(sName, pMember);
        Field& field = m_vecFields.back();
        field.merge = [pMember](R& to, const R& base, const R& mine) {
            MergeKeys(to.*pMember, base.*pMember, mine.*pMember);
        };
        field.surplus = [pMember, name](const R& of, const R& other) {
            return SurplusText(of.*pMember, other.*pMember, name);
        };
    }
    /// Something of several members: equal when its text is.
    void AddText(const QString& sName, std::function<QString(const R&)> text,
        std::function<void(R& to, const R& from)> copy)
    {
        Field field;
        field.sName = sName;
        field.isSame = [text](const R& a, const R& b) { return text(a) == text(b); };
        field.copy = std::move(copy);
        field.text = std::move(text);
        m_vecFields.push_back(std::move(field));
    }
    /// Something that is only written: the server never sends it back, and empty it stays as it is.
    void AddSecret(const QString& sName, std::string R::*pMember)
    {
        AddWritten(
            sName, [pMember](const R& mine) { return !(mine.*pMember).empty(); },
            [pMember](R& to, const R& from) { to.*pMember = from.*pMember; });
    }
    /// The same for something that is not a text of its own.
    void AddWritten(const QString& sName, std::function<bool(const R& mine)> isEntered,
        std::function<void(R& to, const R& from)> copy)
    {
        Field field;
        field.sName = sName;
        field.copy = std::move(copy);
        field.isEntered = std::move(isEntered);
        m_vecFields.push_back(std::move(field));
    }

    /// Whether the server's record holds what was sent, as far as it can be seen.
    bool IsSame(const R& sent, const R& found) const
    {
        return std::all_of(m_vecFields.begin(), m_vecFields.end(),
            [&](const Field& field) { return field.isEntered || field.isSame(sent, found); });
    }
    bool HasSecret(const R& mine) const
    {
        return std::any_of(m_vecFields.begin(), m_vecFields.end(),
            [&](const Field& field) { return field.isEntered && field.isEntered(mine); });
    }
    /// Theirs with what the operator made another of base; base and mine as the form shows them.
    R Merge(const R& base, const R& mine, const R& theirs) const
    {
        R merged = theirs;
        for (const Field& field : m_vecFields) {
            if (field.merge)
                field.merge(merged, base, mine);
            else if (IsTouched(field, base, mine))
                field.copy(merged, mine);
        }
        return merged;
    }
    /// What differs when base became mine here and theirs on the server.
    QVector<Difference> Compare(const R& base, const R& mine, const R& theirs) const
    {
        QVector<Difference> vecDifferences;
        for (const Field& field : m_vecFields) {
            const bool bTouched = IsTouched(field, base, mine);
            const bool bDiffers = field.isEntered ? bTouched : !field.isSame(mine, theirs);
            if (!bDiffers)
                continue;
            const auto text = [&](const R& of, const R& other) {
                return field.isEntered ? Hidden() : field.surplus ? field.surplus(of, other) : field.text(of);
            };
            vecDifferences.append({field.sName, text(theirs, mine), text(mine, theirs), bTouched});
        }
        return vecDifferences;
    }

private:
    struct Field
    {
        QString sName;
        std::function<bool(const R&, const R&)> isSame;
        std::function<void(R&, const R&)> copy;
        std::function<QString(const R&)> text;
        std::function<bool(const R&)> isEntered; ///< of what is only written
        std::function<void(R& to, const R& base, const R& mine)> merge; ///< of keys
        std::function<QString(const R& of, const R& other)> surplus; ///< of keys: those that only the one has
    };

    static bool IsTouched(const Field& field, const R& base, const R& mine)
    {
        return field.isEntered ? field.isEntered(mine) : !field.isSame(base, mine);
    }
    static QString Hidden() { return QStringLiteral("\u2022\u2022\u2022\u2022"); }
    template <class T>
    static const T& Ordered(const T& value)
    {
        return value;
    }
    static std::vector<std::string> Ordered(std::vector<std::string> vecValues)
    {
        std::sort(vecValues.begin(), vecValues.end());
        return vecValues;
    }

    std::vector<Field> m_vecFields;
};

} // namespace Common
