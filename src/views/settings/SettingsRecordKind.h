#pragma once

#include "views/settings/SettingsTabKey.h"

#include <QList>
#include <QString>
#include <QUuid>

class AppSettings;

// The texts and symbols of one kind of record (dossiers, printers, label
// templates), and how to list, add and remove its records in the store.
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

    QList<Entry> entries(const AppSettings& settings) const;
    void add(AppSettings& settings) const;
    // Removes the record at a valid index.
    void remove(AppSettings& settings, qsizetype index) const;

    // The record's position in the store's list, or -1.
    qsizetype indexOf(const AppSettings& settings, const QUuid& id) const;

    // Dossiers, printers, templates: the sidebar's order.
    static const QList<SettingsRecordKind>& all();
    // Null for a kind that is not a record kind.
    static const SettingsRecordKind* of(SettingsTabKey::Kind kind);
};
