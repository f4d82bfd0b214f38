#include "app/AppcastReader.h"

#include "app/VersionComparator.h"

#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace {

const QString kSparkleNamespace = u"http://www.andymatuschak.org/xml-namespaces/sparkle"_s;

bool isSparkle(const QXmlStreamReader& xml, QStringView name)
{
    return xml.namespaceUri() == kSparkleNamespace && xml.name() == name;
}

bool isPlain(const QXmlStreamReader& xml, QStringView name)
{
    return xml.namespaceUri().isEmpty() && xml.name() == name;
}

QString elementText(QXmlStreamReader& xml)
{
    return xml.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
}

// Only web addresses are handed to the browser; a feed cannot make the
// program open local files or other schemes.
QUrl webURL(const QString& text)
{
    const QUrl url(text.trimmed(), QUrl::StrictMode);
    const QString scheme = url.scheme().toLower();
    if (!url.isValid() || url.host().isEmpty() || (scheme != u"https" && scheme != u"http"))
        return {};
    return url;
}

bool isLoopbackHost(const QString& host)
{
    return host == u"127.0.0.1" || host == u"::1" || host == u"localhost";
}

// What the user downloads and installs must not be open to change on the way:
// https only, plain http just for a feed served on this machine.
struct DownloadLink
{
    QUrl url;
    bool isRefusedAsPlain = false;

    DownloadLink() = default;
    explicit DownloadLink(const QString& text)
    {
        const QUrl web = webURL(text);
        if (web.scheme().toLower() == u"https" || (web.isValid() && isLoopbackHost(web.host())))
            url = web;
        else
            isRefusedAsPlain = web.isValid();
    }
};

struct ReadItem
{
    AppcastItem item;
    // Left without a download only because its links were plain http.
    bool isRefusedAsPlain = false;
};

// Older feeds carry the versions as attributes of the enclosure; the
// elements of the item win when both are present.
void readEnclosure(const QXmlStreamReader& xml, AppcastItem& item, DownloadLink& enclosure)
{
    const QXmlStreamAttributes attributes = xml.attributes();
    enclosure = DownloadLink(attributes.value(u"url"_s).toString());
    if (item.version.isEmpty())
        item.version = attributes.value(kSparkleNamespace, u"version"_s).trimmed().toString();
    if (item.shortVersionString.isEmpty()) {
        item.shortVersionString =
            attributes.value(kSparkleNamespace, u"shortVersionString"_s).trimmed().toString();
    }
}

ReadItem readItem(QXmlStreamReader& xml)
{
    AppcastItem item;
    DownloadLink enclosure;
    DownloadLink link;
    while (xml.readNextStartElement()) {
        if (isSparkle(xml, u"version")) {
            item.version = elementText(xml);
        } else if (isSparkle(xml, u"shortVersionString")) {
            item.shortVersionString = elementText(xml);
        } else if (isSparkle(xml, u"releaseNotesLink")) {
            item.releaseNotesURL = webURL(elementText(xml));
        } else if (isPlain(xml, u"enclosure")) {
            readEnclosure(xml, item, enclosure);
            xml.skipCurrentElement();
        } else if (isPlain(xml, u"title")) {
            item.title = elementText(xml);
        } else if (isPlain(xml, u"link")) {
            link = DownloadLink(elementText(xml));
        } else {
            xml.skipCurrentElement();
        }
    }
    // An item without a file still points somewhere people can download it.
    item.downloadURL = enclosure.url.isValid() ? enclosure.url : link.url;
    const bool isRefusedAsPlain =
        !item.downloadURL.isValid() && (enclosure.isRefusedAsPlain || link.isRefusedAsPlain);
    return {item, isRefusedAsPlain};
}

// Returns whether an item with a version was left out only for plain http.
bool readChannel(QXmlStreamReader& xml, QList<AppcastItem>& items)
{
    bool refusedPlain = false;
    while (xml.readNextStartElement()) {
        if (!isPlain(xml, u"item")) {
            xml.skipCurrentElement();
            continue;
        }
        const ReadItem entry = readItem(xml);
        if (entry.item.version.isEmpty())
            continue;
        if (entry.item.downloadURL.isValid())
            items.append(entry.item);
        refusedPlain = refusedPlain || entry.isRefusedAsPlain;
    }
    return refusedPlain;
}

} // namespace

Expected<QList<AppcastItem>, QString> AppcastReader::read(const QByteArray& feed)
{
    QXmlStreamReader xml(feed);
    if (!xml.readNextStartElement() || !isPlain(xml, u"rss")) {
        if (xml.hasError())
            return u"De updatefeed is geen geldige XML: "_s + xml.errorString();
        return u"De updatefeed is geen RSS-feed."_s;
    }

    QList<AppcastItem> items;
    bool refusedPlain = false;
    while (xml.readNextStartElement()) {
        if (isPlain(xml, u"channel"))
            refusedPlain = readChannel(xml, items) || refusedPlain;
        else
            xml.skipCurrentElement();
    }
    if (xml.hasError())
        return u"De updatefeed is geen geldige XML: "_s + xml.errorString();
    if (items.isEmpty() && refusedPlain)
        return u"De updatefeed biedt geen enkele versie via https aan."_s;
    if (items.isEmpty())
        return u"De updatefeed noemt geen enkele versie."_s;
    return items;
}

Expected<AppcastItem, QString> AppcastReader::newestItem(const QByteArray& feed)
{
    const Expected<QList<AppcastItem>, QString> items = read(feed);
    if (!items)
        return items.error();
    const QList<AppcastItem>& list = items.value();
    auto newest = list.cbegin();
    for (auto it = list.cbegin(); it != list.cend(); ++it) {
        if (VersionComparator::compare(it->version, newest->version) > 0)
            newest = it;
    }
    return *newest;
}
