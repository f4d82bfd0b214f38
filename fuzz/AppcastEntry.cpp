#include "FuzzCheck.h"
#include "FuzzEntries.h"
#include "app/AppcastReader.h"
#include "app/VersionComparator.h"

using namespace Qt::StringLiterals;

namespace {

const QStringList kMessages{u"De updatefeed is geen RSS-feed."_s,
                            u"De updatefeed noemt geen enkele versie."_s,
                            u"De updatefeed biedt geen enkele versie via https aan."_s};
const QString kXmlMessage = u"De updatefeed is geen geldige XML: "_s;

// What the browser may be sent to: https with a host; plain http only to this machine.
bool isSafeDownload(const QUrl& url)
{
    const QString host = url.host();
    const bool loopback = host == u"127.0.0.1" || host == u"::1" || host == u"localhost";
    return url.isValid() && !host.isEmpty() &&
           (url.scheme() == u"https" || (url.scheme() == u"http" && loopback));
}

} // namespace

int stampixfuzz::appcast(const std::uint8_t* data, std::size_t size)
{
    const QByteArray feed = toBytes(data, size);
    const Expected<QList<AppcastItem>, QString> items = AppcastReader::read(feed);
    const Expected<AppcastItem, QString> newest = AppcastReader::newestItem(feed);
    check(bool(items) == bool(newest), "the newest item exists exactly when the feed reads");
    if (!items) {
        const QString& error = items.error();
        check(kMessages.contains(error) ||
                  (error.startsWith(kXmlMessage) && error.size() > kXmlMessage.size()),
              "a failed read gives only known messages", error);
        return 0;
    }
    for (const AppcastItem& item : items.value()) {
        check(!item.version.isEmpty() && item.version == item.version.trimmed(),
              "a version, trimmed", item.version);
        check(isSafeDownload(item.downloadURL), "only https downloads (http only on loopback)",
              item.downloadURL.toString());
        const QUrl& notes = item.releaseNotesURL;
        check(notes.isEmpty() || (notes.isValid() && !notes.host().isEmpty() &&
                                  (notes.scheme() == u"https" || notes.scheme() == u"http")),
              "release notes are a web address or none", notes.toString());
        check(VersionComparator::compare(item.version, newest.value().version) <= 0,
              "no item is newer than the newest", item.version);
    }
    return 0;
}
