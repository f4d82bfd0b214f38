#pragma once

#include "views/common/PlaceholderView.h"

struct SettingsRecordKind;

// What the detail area shows when the selection names no record of a kind:
// a prompt to pick one, or, with an empty list, how to add the first.
class NoRecordSelectedView : public PlaceholderView
{
    Q_OBJECT

public:
    NoRecordSelectedView(const SettingsRecordKind& kind, bool listEmpty, QWidget* parent = nullptr);

    // Below the message (detail()); empty while the list has records.
    QString hint() const;

private:
    QLabel* m_hint = nullptr;
};
