#pragma once

#include <QByteArray>
#include <QByteArrayList>

// Builds update feeds in the appcast layout for the updater tests.
namespace AppcastFeeds {

inline QByteArray channel(const QByteArrayList& items)
{
    return R"(<?xml version="1.0" encoding="utf-8"?>
<rss version="2.0" xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle"
     xmlns:dc="http://purl.org/dc/elements/1.1/">
  <channel>
    <title>Stampix</title>
    <link>https://stampix.example/</link>
)" + items.join('\n') +
           R"(
  </channel>
</rss>
)";
}

// An item in the current layout: versions as elements of the item.
inline QByteArray item(const QByteArray& version, const QByteArray& shortVersion)
{
    return R"(    <item>
      <title>Version )" +
           shortVersion + R"(</title>
      <pubDate>Mon, 06 Jan 2025 10:00:00 +0000</pubDate>
      <sparkle:version>)" +
           version + R"(</sparkle:version>
      <sparkle:shortVersionString>)" +
           shortVersion + R"(</sparkle:shortVersionString>
      <sparkle:releaseNotesLink>https://stampix.example/notes/)" +
           shortVersion + R"(.html</sparkle:releaseNotesLink>
      <description><![CDATA[<p>Fixes &amp; <b>more</b></p>]]></description>
      <enclosure url="https://stampix.example/download/Stampix-)" +
           shortVersion + R"(.zip" length="123456" type="application/octet-stream"
                 sparkle:edSignature="c2lnbmF0dXJl"/>
    </item>)";
}

} // namespace AppcastFeeds
