#include "TextRules.h"

#include <QByteArray>
#include <QHostAddress>
#include <QString>

namespace Platform {

std::string FoldCase(const std::string& sText)
{
    return QString::fromStdString(sText).toCaseFolded().toStdString();
}

std::string Trimmed(const std::string& sText)
{
    return QString::fromStdString(sText).trimmed().toStdString();
}

std::string PercentDecoded(const std::string& sText)
{
    // Bytes that are not UTF-8 after decoding become replacement characters, which match nothing.
    return QString::fromUtf8(QByteArray::fromPercentEncoding(QByteArray::fromStdString(sText))).toStdString();
}

std::string AddressSortKey(const std::string& sAddress)
{
    if (sAddress.empty())
        return "~";
    QHostAddress address;
    if (!address.setAddress(QString::fromStdString(sAddress)))
        return 'h' + FoldCase(sAddress);
    if (address.protocol() == QAbstractSocket::IPv4Protocol)
        return QStringLiteral("4%1").arg(address.toIPv4Address(), 8, 16, QLatin1Char('0')).toStdString();
    const Q_IPV6ADDR bytes = address.toIPv6Address();
    return '6' + QByteArray(reinterpret_cast<const char*>(bytes.c), 16).toHex().toStdString();
}

std::string DeviceSearchKey(const std::string& sName, const std::string& sAddress)
{
    // Names and addresses hold no line break, so that no search matches across the two.
    return FoldCase(sName) + '\n' + FoldCase(sAddress);
}

} // namespace Platform
