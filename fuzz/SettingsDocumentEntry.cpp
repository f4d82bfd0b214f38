#include "FuzzCheck.h"
#include "FuzzEntries.h"
#include "model/SettingsData.h"

namespace stampixfuzz {

int settingsDocument(const std::uint8_t* data, std::size_t size)
{
    QString error;
    std::optional<SettingsData> first = SettingsData::read(toBytes(data, size), &error);
    if (!first) {
        // The description ends up in the "Failed to load settings: " line.
        check(!error.isEmpty(), "an unreadable document comes with a description");
        return 0;
    }

    const QByteArray written = first->write();
    const std::optional<SettingsData> second = SettingsData::read(written, &error);
    check(second.has_value(), "a written document reads back", error);
    // What a save keeps: everything but the values of the old layout, so a
    // legacy key that was written would read back and differ here.
    first->legacyApiKey.clear();
    first->legacyPrinterIP.clear();
    first->legacyPrinterPort = Printer::kDefaultPort;
    for (LabelTemplate& labelTemplate : first->templates) {
        labelTemplate.printerIP.reset();
        labelTemplate.printerPort.reset();
    }
    check(*second == *first, "a written document reads back with the same values",
          QString::fromUtf8(written));
    check(second->write() == written, "writing what was read back gives the same bytes");
    return 0;
}

} // namespace stampixfuzz
