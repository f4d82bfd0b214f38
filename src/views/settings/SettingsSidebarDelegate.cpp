#include "views/settings/SettingsSidebarDelegate.h"

#include "views/common/SymbolIcons.h"
#include "views/common/Theme.h"
#include "views/settings/SettingsSidebarModel.h"

#include <QPainter>
#include <QPainterPath>

using namespace Qt::StringLiterals;
using Entry = SettingsSidebarModel::Entry;

namespace {

// Entries stand 2 apart.
constexpr int kSpacing = 2;
constexpr int kGap = 8;
constexpr int kPadding = 12;
constexpr int kRecordIndent = 44;
constexpr int kDividerPadding = 8;
constexpr qreal kFocusWidth = 2;

struct Metrics
{
    int height;
    int leading; // space before the symbol box
    int iconSize;
    int iconBox;
    int fontSize;
    qreal radius;
};

// Group headers and "Over" line their symbols up behind the chevron's box.
constexpr Metrics kHeader{32, kPadding + 10 + kGap, 14, 20, 13, 8};
constexpr Metrics kRecord{28, kRecordIndent, 12, 16, 12, 6};

Entry entryOf(const QModelIndex& index)
{
    return index.data(SettingsSidebarModel::entryRole).value<Entry>();
}

QFont emptyTextFont()
{
    QFont font = Theme::systemFont(11);
    font.setItalic(true);
    return font;
}

} // namespace

QColor SettingsSidebarDelegate::iconColor(const QModelIndex& index, bool selected,
                                          const QPalette& palette)
{
    if (selected)
        return Qt::white;
    if (index.data(SettingsSidebarModel::setUpRole).toBool())
        return Theme::green(palette);
    return palette.color(Theme::kSecondaryText);
}

QColor SettingsSidebarDelegate::textColor(bool selected, const QPalette& palette)
{
    return selected ? QColor(Qt::white) : palette.color(QPalette::WindowText);
}

QSize SettingsSidebarDelegate::sizeHint(const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const
{
    const int width = option.rect.width();
    switch (entryOf(index)) {
    case Entry::group:
        return {width, kHeader.height + kSpacing};
    case Entry::record:
        return {width, kRecord.height + kSpacing};
    case Entry::emptyText:
        return {width, QFontMetrics(emptyTextFont()).height() + 2 * 4 + kSpacing};
    case Entry::divider:
        return {width, m_dividerHeight};
    default: // "Over", the last entry
        return {width, kHeader.height};
    }
}

void SettingsSidebarDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const
{
    const Entry entry = entryOf(index);
    const QPalette& palette = option.palette;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (entry == Entry::divider) {
        QColor gray(Qt::gray);
        gray.setAlphaF(0.3f);
        const int y = option.rect.bottom() - kDividerPadding - kSpacing;
        painter->fillRect(QRect(option.rect.left(), y, option.rect.width(), 1), gray);
        painter->restore();
        return;
    }
    const QString text = index.data(Qt::DisplayRole).toString();
    if (entry == Entry::emptyText) {
        painter->setFont(emptyTextFont());
        painter->setPen(palette.color(Theme::kSecondaryText));
        painter->drawText(option.rect.adjusted(kRecordIndent, 4, 0, -4 - kSpacing),
                          Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
        painter->restore();
        return;
    }

    const Metrics& m = entry == Entry::record ? kRecord : kHeader;
    const QRect row(option.rect.topLeft(), QSize(option.rect.width(), m.height));
    const bool selected = option.state & QStyle::State_Selected;
    if (selected) {
        QPainterPath background;
        background.addRoundedRect(QRectF(row), m.radius, m.radius);
        painter->fillPath(background, palette.color(QPalette::Active, QPalette::Highlight));
    }

    const int midY = row.top() + (m.height - m.iconSize) / 2;
    if (entry == Entry::group) {
        const bool open = option.state & QStyle::State_Open;
        symbol(open ? u"chevron.down"_s : u"chevron.right"_s, palette.color(Theme::kSecondaryText),
               9)
            .paint(painter, QRect(row.left() + kPadding, row.top() + (m.height - 9) / 2, 9, 9));
    }
    const QColor symbolColor = entry == Entry::record ? iconColor(index, selected, palette)
                               : selected             ? QColor(Qt::white)
                                                      : palette.color(Theme::kSecondaryText);
    const int iconX = row.left() + m.leading;
    symbol(index.data(SettingsSidebarModel::symbolRole).toString(), symbolColor, m.iconSize)
        .paint(painter, QRect(iconX + (m.iconBox - m.iconSize) / 2, midY, m.iconSize, m.iconSize));

    const int textX = iconX + m.iconBox + kGap;
    // Group titles stop before the "+" button.
    const int right = entry == Entry::group ? kPadding + 20 + kGap : kPadding;
    const QRect textRect(textX, row.top(), row.right() + 1 - right - textX, m.height);
    const bool medium = entry == Entry::category && selected;
    painter->setFont(Theme::systemFont(m.fontSize, medium ? QFont::Medium : QFont::Normal));
    painter->setPen(textColor(selected, palette));
    painter->drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      painter->fontMetrics().elidedText(text, Qt::ElideRight, textRect.width()));

    if (option.state & QStyle::State_HasFocus) {
        const qreal inset = kFocusWidth / 2;
        QPainterPath ring;
        ring.addRoundedRect(QRectF(row).adjusted(inset, inset, -inset, -inset), m.radius, m.radius);
        painter->setPen(QPen(selected ? palette.color(QPalette::HighlightedText)
                                      : palette.color(QPalette::Active, QPalette::Highlight),
                             kFocusWidth));
        painter->setBrush(Qt::NoBrush);
        painter->drawPath(ring);
    }
    painter->restore();
}

const QIcon& SettingsSidebarDelegate::symbol(const QString& name, const QColor& color,
                                             int size) const
{
    const QString key = u"%1 %2 %3"_s.arg(name, color.name(QColor::HexArgb)).arg(size);
    auto found = m_symbols.constFind(key);
    if (found == m_symbols.constEnd())
        found = m_symbols.insert(key, SymbolIcons::tinted(name, color, size));
    return *found;
}
