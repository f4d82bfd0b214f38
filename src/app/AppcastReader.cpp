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

// What the user downloads and installs must not be open to change on the way:
// https only, plain http just for a feed served on this machine. `refusedAsPlain`
// tells whether a web address was turned down for being plain http.
QUrl downloadURL(const QString& text, bool& refusedAsPlain)
{
    const QUrl web = webURL(text);
    const QString host = web.host();
    refusedAsPlain = false;
    if (web.scheme().toLower() == u"https" || host == u"127.0.0.1" || host == u"::1" ||
        host == u"localhost")
        return web;
    refusedAsPlain = web.isValid();
    return {};
}

// Older feeds carry the versions as attributes of the enclosure; the elements
// of the item win when both are present. Sets `refusedAsPlain` when the item
// was left without a download only because its links were plain http.
AppcastItem readItem(QXmlStreamReader& xml, bool& refusedAsPlain)
{
    AppcastItem item;
    QUrl enclosure;
    QUrl link;
    bool enclosurePlain = false;
    bool linkPlain = false;
    while (xml.readNextStartElement()) {
        if (isSparkle(xml, u"version")) {
            item.version = elementText(xml);
        } else if (isSparkle(xml, u"shortVersionString")) {
            item.shortVersionString = elementText(xml);
        } else if (isSparkle(xml, u"releaseNotesLink")) {
            item.releaseNotesURL = webURL(elementText(xml));
        } else if (isPlain(xml, u"enclosure")) {
            const QXmlStreamAttributes attributes = xml.attributes();
            enclosure = downloadURL(attributes.value(u"url"_s).toString(), enclosurePlain);
            for (auto [field, name] :
                 {std::pair{&item.version, u"version"_s},
                  std::pair{&item.shortVersionString, u"shortVersionString"_s}}) {
                if (field->isEmpty())
                    *field = attributes.value(kSparkleNamespace, name).trimmed().toString();
            }
            xml.skipCurrentElement();
        } else if (isPlain(xml, u"title")) {
            item.title = elementText(xml);
        } else if (isPlain(xml, u"link")) {
            link = downloadURL(elementText(xml), linkPlain);
        } else {
            xml.skipCurrentElement();
        }
    }
    // An item without a file still points somewhere people can download it.
    item.downloadURL = enclosure.isValid() ? enclosure : link;
    refusedAsPlain = !item.downloadURL.isValid() && (enclosurePlain || linkPlain);
    return item;
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
        if (!isPlain(xml, u"channel")) {
            xml.skipCurrentElement();
            continue;
        }
        while (xml.readNextStartElement()) {
            if (!isPlain(xml, u"item")) {
                xml.skipCurrentElement();
                continue;
            }
            bool plain = false;
            const AppcastItem item = readItem(xml, plain);
            if (item.version.isEmpty())
                continue;
            if (item.downloadURL.isValid())
                items.append(item);
            refusedPlain = refusedPlain || plain;
        }
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
