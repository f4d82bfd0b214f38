#include "FuzzCheck.h"
#include "FuzzEntries.h"
#include "app/AppcastReader.h"
#include "app/VersionComparator.h"

#include <compare>

using namespace Qt::StringLiterals;

namespace {

const QStringList kMessages{u"De updatefeed is geen RSS-feed."_s,
                            u"De updatefeed noemt geen enkele versie."_s,
                            u"De updatefeed biedt geen enkele versie via https aan."_s};
const QString kXmlMessage = u"De updatefeed is geen geldige XML: "_s;

bool isTrimmed(const QString& text)
{
    return text == text.trimmed();
}

// What the browser may be sent to: https with a host; plain http only to this machine.
bool isSafeDownload(const QUrl& url)
{
    const QString host = url.host();
    const bool loopback = host == u"127.0.0.1" || host == u"::1" || host == u"localhost";
    return url.isValid() && !host.isEmpty() &&
           (url.scheme() == u"https" || (url.scheme() == u"http" && loopback));
}

bool isWebOrNone(const QUrl& url)
{
    return url.isEmpty() || (url.isValid() && !url.host().isEmpty() &&
                             (url.scheme() == u"https" || url.scheme() == u"http"));
}

bool isSame(const AppcastItem& left, const AppcastItem& right)
{
    return left.title == right.title && left.version == right.version &&
           left.shortVersionString == right.shortVersionString &&
           left.releaseNotesURL == right.releaseNotesURL && left.downloadURL == right.downloadURL;
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
        check(newest.error() == error, "both reads fail alike", newest.error());
        return 0;
    }

    const QList<AppcastItem>& list = items.value();
    check(!list.isEmpty(), "a feed that reads has an item");
    qsizetype first = 0;
    for (qsizetype i = 0; i < list.size(); ++i) {
        const AppcastItem& item = list.at(i);
        check(!item.version.isEmpty() && isTrimmed(item.version), "a version, trimmed",
              item.version);
        check(isTrimmed(item.shortVersionString) && isTrimmed(item.title),
              "shown texts are trimmed", item.shortVersionString + u' ' + item.title);
        check(isSafeDownload(item.downloadURL), "only https downloads (http only on loopback)",
              item.downloadURL.toString());
        check(isWebOrNone(item.releaseNotesURL), "release notes are a web address or none",
              item.releaseNotesURL.toString());
        if (VersionComparator::compare(item.version, list.at(first).version) > 0)
            first = i;
    }

    const AppcastItem& chosen = newest.value();
    check(isSame(chosen, list.at(first)), "the newest is the first of the highest versions",
          chosen.version + u" / "_s + list.at(first).version);
    for (qsizetype i = 0; i < list.size(); ++i) {
        const auto order = VersionComparator::compare(list.at(i).version, chosen.version);
        check(order <= 0, "no item is newer than the newest", list.at(i).version);
        check(i >= first || order < 0, "no earlier item equals the newest", list.at(i).version);
        check(VersionComparator::compare(chosen.version, list.at(i).version) == (0 <=> order),
              "version order is antisymmetric", list.at(i).version);
    }
    return 0;
}
