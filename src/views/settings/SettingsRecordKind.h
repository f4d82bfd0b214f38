#pragma once

#include "viewmodels/SettingsTabKey.h"

#include <QList>
#include <QString>

// The texts and symbols of one kind of record (dossiers, printers, label
// templates) in the sidebar and the detail area's empty states.
struct SettingsRecordKind
{
    SettingsTabKey::Kind kind;
    QString groupTitle;
    QString symbol;
    QString filledSymbol;
    QString addName;
    QString emptyGroupText;
    QString selectPrompt;
    QString emptyListText;
    QString emptyListHint;

    // Dossiers, printers, templates: the sidebar's order.
    static const QList<SettingsRecordKind>& all();
};
