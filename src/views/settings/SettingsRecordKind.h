#pragma once

#include "views/settings/SettingsTabKey.h"

#include <QList>
#include <QString>
#include <QUuid>

class AppSettings;
class QWidget;
class SettingsView;

// Everything the settings window needs to know about one kind of record
// (dossiers, printers, label templates): its texts and symbols, and how to
// list, add, remove and edit its records in the store. One entry per kind.
struct SettingsRecordKind
{
    // One record as the sidebar shows it.
    struct Entry
    {
        QUuid id;
        QString name;
        // Shown with the filled symbol in green.
        bool isSetUp = false;
    };

    SettingsTabKey::Kind kind;
    QString groupTitle;
    QString symbol;
    QString filledSymbol;
    QString addName;
    QString emptyGroupText;
    QString selectPrompt;
    QString emptyListText;
    QString emptyListHint;
    void (AppSettings::*add)();
    QList<Entry> (*entries)(const AppSettings& settings);
    // Removes the record at a valid index.
    void (*remove)(AppSettings& settings, qsizetype index);
    QWidget* (*makeEditor)(SettingsView& view, qsizetype index);

    // The record's position in the store's list, or -1.
    qsizetype indexOf(const AppSettings& settings, const QUuid& id) const;

    // Dossiers, printers, templates: the sidebar's order.
    static const QList<SettingsRecordKind>& all();
    // Null for a kind that is not a record kind.
    static const SettingsRecordKind* of(SettingsTabKey::Kind kind);
};
