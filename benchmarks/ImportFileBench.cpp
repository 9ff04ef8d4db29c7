#include "Bench.h"

#include <ResourceManagerUI/DeviceImport/CDeviceImportFile.h>

#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

#include <pugixml.hpp>

namespace {

constexpr int Devices = 100'000;
constexpr int Runs = 15;

/// The attributes that every device has to have, and the organisation.
QByteArray MakeFile()
{
    QByteArray baFile("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<DeviceManager version=\"2.0\">\n");
    for (int i = 0; i < Devices; ++i) {
        const QByteArray baAddress = "10." + QByteArray::number(i / 65536) + '.'
            + QByteArray::number(i / 256 % 256) + '.' + QByteArray::number(i % 256);
        baFile += "  <Device name=\"Camera " + QByteArray::number(i) + "\" connect=\"1\" address=\""
            + baAddress + "\" port=\"37777\" username=\"admin\" password=\"p4ssword&amp;"
            + QByteArray::number(i) + "\" organization=\"001\"/>\n";
    }
    return baFile + "</DeviceManager>\n";
}

void Expect(bool bHolds)
{
    if (bHolds)
        return;
    fprintf(stderr, "The import file was not read.\n");
    std::exit(2);
}

} // namespace

std::vector<BenchResult> BenchImportFile()
{
    const QTemporaryDir folder;
    const QString sPath = folder.filePath(QStringLiteral("devices.xml"));
    {
        QFile file(sPath);
        Expect(file.open(QIODevice::WriteOnly) && file.write(MakeFile()) > 0);
    }
    const Medians medians = MedianPairMs(
        Runs,
        [&] {
            ResourceManagerUI::CDeviceImportFile file;
            Expect(file.Load(sPath) == ResourceManagerUI::CDeviceImportFile::Status::Read
                && file.GetRows().size() == Devices);
        },
        [&] {
            pugi::xml_document document;
            Expect(bool(document.load_file(QFile::encodeName(sPath).constData())));
        });
    return {{QStringLiteral("import file of 100,000 devices into rows, against the XML parser alone"),
        medians.dFirst, medians.dSecond, QStringLiteral("ms"), 1.3}};
}
