#include "views/settings/NoRecordSelectedView.h"

#include "views/common/Theme.h"
#include "views/settings/SettingsRecordKind.h"

#include <QLabel>

NoRecordSelectedView::NoRecordSelectedView(const SettingsRecordKind& kind, bool listEmpty,
                                           QWidget* parent)
    : PlaceholderView(symbol(kind.symbol), {}, listEmpty ? kind.emptyListText : kind.selectPrompt,
                      parent)
{
    if (listEmpty)
        m_hint = addLine(kind.emptyListHint, Theme::caption());
}

QString NoRecordSelectedView::hint() const
{
    return m_hint ? m_hint->text() : QString();
}
