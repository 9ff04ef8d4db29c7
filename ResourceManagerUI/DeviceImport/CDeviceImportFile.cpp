#include "CDeviceImportFile.h"

#include "CPlainDeviceScanner.h"
#include "XmlText.h"

#include <UICommonMdl/ErrorCodes.h>

#include <QCoreApplication>
#include <QFile>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

#include <pugixml.hpp>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDevImport)
};

using Status = CDeviceImportFile::Status;

constexpr double LowestVersion = 2.0;
constexpr std::string_view RootName = "DeviceManager";
constexpr std::string_view RootClosing = "</DeviceManager>";
constexpr std::string_view DeviceName = "Device";
constexpr std::string_view DeviceOpening = "<Device ";
constexpr const char* Blanks = " \t\r\n";

QString UnreadableReason(const pugi::xml_node& node)
{
    if (node.type() != pugi::node_element)
        return Text::tr("Text stands between the devices.");
    if (node.name() != DeviceName)
        return Text::tr("The element \"%1\" is not known.").arg(QString::fromUtf8(node.name()));
    if (node.first_child())
        return Text::tr("The device holds other elements or text.");
    return Text::tr("The texts of the device are too long.");
}

std::optional<double> ReadVersion(const pugi::xml_node& root)
{
    const std::string_view sVersion = root.attribute("version").value();
    double dVersion = 0;
    const auto [pEnd, error] = std::from_chars(sVersion.data(), sVersion.data() + sVersion.size(), dVersion);
    if (error != std::errc() || pEnd != sVersion.data() + sVersion.size() || !std::isfinite(dVersion))
        return std::nullopt;
    return dVersion;
}

Status CheckRoot(const pugi::xml_node& root)
{
    const std::optional<double> optVersion = ReadVersion(root);
    if (root.name() != RootName || !optVersion)
        return Status::Invalid;
    return *optVersion < LowestVersion ? Status::TooOld : Status::Read;
}

std::vector<std::size_t> FindLineEnds(std::string_view sBytes)
{
    std::vector<std::size_t> vecLineEnds;
    for (std::size_t nAt = sBytes.find('\n'); nAt != std::string_view::npos; nAt = sBytes.find('\n', nAt + 1))
        vecLineEnds.push_back(nAt);
    return vecLineEnds;
}

} // namespace

Status CDeviceImportFile::Load(const QString& sPath)
{
    if (const Status status = ReadBytes(sPath); status != Status::Read)
        return status;
    std::optional<Status> optStatus = LoadPlain();
    if (!optStatus) {
        m_vecRows.clear();
        const Status status = ReadBytes(sPath);
        optStatus = status == Status::Read ? LoadByParser() : status;
    }
    if (*optStatus == Status::Read && m_vecRows.empty() && m_vecUnreadable.empty())
        return Status::Empty;
    return *optStatus;
}

Status CDeviceImportFile::ReadBytes(const QString& sPath)
{
    QFile file(sPath);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) || file.isSequential())
        return Status::Unreadable;
    const qint64 nSize = file.size();
    if (nSize > MaxBytes)
        return Status::TooLarge;
    m_nBytes = static_cast<std::size_t>(nSize);
    m_pBytes = std::make_unique_for_overwrite<char[]>(m_nBytes);
    return file.read(m_pBytes.get(), nSize) == nSize ? Status::Read : Status::Unreadable;
}

// None when the file does not have the plain form; its bytes are spoilt then.
std::optional<Status> CDeviceImportFile::LoadPlain()
{
    const std::string_view sBytes(m_pBytes.get(), m_nBytes);
    const std::size_t nFirst = sBytes.find(DeviceOpening);
    const std::size_t nEnd = sBytes.rfind(RootClosing);
    if (nFirst == std::string_view::npos || nEnd == std::string_view::npos || nEnd < nFirst
        || sBytes.find_first_not_of(Blanks, nEnd + RootClosing.size()) != std::string_view::npos)
        return std::nullopt;

    const std::string sHead = std::string(sBytes.substr(0, nFirst)).append(RootClosing);
    pugi::xml_document head;
    if (!IsWellFormedXml(sHead)
        || !head.load_buffer(sHead.data(), sHead.size(), pugi::parse_default, pugi::encoding_utf8)
        || head.document_element().first_child())
        return std::nullopt;
    if (const Status status = CheckRoot(head.document_element()); status != Status::Read)
        return status;

    const auto nLine = 1 + std::count(sHead.begin(), sHead.end(), '\n');
    m_vecRows.reserve(std::min(m_nBytes / 100, MaxRows));
    CPlainDeviceScanner scanner(m_pBytes.get() + nFirst, m_pBytes.get() + nEnd, static_cast<int>(nLine));
    return scanner.Scan(m_vecRows, MaxRows) ? std::optional(Status::Read) : std::nullopt;
}

Status CDeviceImportFile::LoadByParser()
{
    // The parser forgives much that is no XML.
    const std::string_view sBytes(m_pBytes.get(), m_nBytes);
    if (!IsWellFormedXml(sBytes))
        return Status::Invalid;
    const std::vector<std::size_t> vecLineEnds = FindLineEnds(sBytes);
    pugi::xml_document document;
    if (!document.load_buffer_inplace(m_pBytes.get(), m_nBytes, pugi::parse_default, pugi::encoding_utf8))
        return Status::Invalid;
    if (const Status status = CheckRoot(document.document_element()); status != Status::Read)
        return status;
    return AddRows(document.document_element(), vecLineEnds) ? Status::Read : Status::TooManyRows;
}

/// False when there are too many.
bool CDeviceImportFile::AddRows(const pugi::xml_node& root, const std::vector<std::size_t>& vecLineEnds)
{
    CImportFieldFinder fields;
    std::size_t nLineEnds = 0;
    for (const pugi::xml_node& node : root.children()) {
        if (m_vecRows.size() + m_vecUnreadable.size() >= MaxRows)
            return false;
        // An element's name and a text point into the bytes of the file.
        const char* const pszPlace = node.type() == pugi::node_element
            ? node.name()
            : node.value() + std::strspn(node.value(), Blanks);
        const auto nOffset = static_cast<std::size_t>(pszPlace - m_pBytes.get());
        while (nLineEnds < vecLineEnds.size() && vecLineEnds[nLineEnds] < nOffset)
            ++nLineEnds;
        const int nLine = static_cast<int>(nLineEnds) + 1;
        if (node.name() != DeviceName || node.first_child() || !AddRow(node, nLine, fields)) {
            m_vecUnreadable.push_back(
                {nLine, node.attribute("name").value(), node.attribute("address").value(), {},
                    UICommonMdl::ErrorNone, UnreadableReason(node).toStdString()});
        }
    }
    return true;
}

/// False when its texts are too long for a row.
bool CDeviceImportFile::AddRow(const pugi::xml_node& device, int nLine, CImportFieldFinder& fields)
{
    ImportFileRow row(device.name(), nLine);
    std::size_t nPlace = 0;
    for (const pugi::xml_attribute& attribute : device.attributes()) {
        const ImportField field = fields.Find(nPlace++, attribute.name());
        if (field != FieldCount && row.Add(field, attribute.value()) != ImportFileRow::Added::Good)
            return false;
    }
    m_vecRows.push_back(row);
    return true;
}

GroupLogical::ImportRow_t CDeviceImportFile::MakeImportRow(const ImportFileRow& row)
{
    GroupLogical::ImportRow_t result;
    result.nLine = row.GetLine();
    result.sName = row.GetText(FieldName);
    result.sConnect = row.GetText(FieldConnect);
    result.sAddress = row.GetText(FieldAddress);
    result.sDomain = row.GetText(FieldDomain);
    result.sPort = row.GetText(FieldPort);
    result.sUserName = row.GetText(FieldUserName);
    result.sPassword = row.GetText(FieldPassword);
    result.sCategory = row.GetText(FieldCategory);
    result.sProtocol = row.GetText(FieldProtocol);
    result.sManufacturer = row.GetText(FieldManufacturer);
    result.sModel = row.GetText(FieldModel);
    result.sSerialNumber = row.GetText(FieldSerialNumber);
    result.sRegisterId = row.GetText(FieldRegisterId);
    result.sOrganization = row.GetText(FieldOrganization);
    return result;
}

QString CDeviceImportFile::GetStatusText(Status status)
{
    switch (status) {
    case Status::Read:
        return {};
    case Status::Unreadable:
        return Text::tr("The file cannot be read.");
    case Status::TooLarge:
        return Text::tr("Import file size can not exceed %1K!").arg(MaxBytes / 1024);
    case Status::Invalid:
        return Text::tr("InValid XML file!");
    case Status::TooOld:
        return Text::tr("Only support more than 2.0 version.");
    case Status::TooManyRows:
        return Text::tr("The file holds too many rows.");
    case Status::Empty:
        return Text::tr("The file holds no device.");
    }
    return {};
}

} // namespace ResourceManagerUI
