#include "views/main/PrintButton.h"

#include "views/common/BusyIndicator.h"
#include "views/common/SymbolIcons.h"
#include "views/common/Theme.h"

#include <QEvent>
#include <QPixmap>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSymbolSize = 14;
constexpr int kPaddingX = 8 + 4; // the label's padding plus the bezel, less the 2 pixel ring
constexpr int kHeight = 28;      // large control size
constexpr int kRadius = 6;
// The small wheel is drawn at 0.7 of its usual 16 pixels inside the 14 pixel frame.
constexpr int kBusyDiameter = 11;

QColor highlightedText(const QPalette& palette)
{
    return palette.color(QPalette::Active, QPalette::HighlightedText);
}

QIcon blankIcon()
{
    QPixmap blank(kSymbolSize, kSymbolSize);
    blank.fill(Qt::transparent);
    return QIcon(blank);
}

} // namespace

PrintButton::PrintButton(QWidget* parent)
    : QPushButton(u"Start afdrukken"_s, parent),
      m_busyIndicator(new BusyIndicator(kBusyDiameter, &highlightedText, this)),
      m_blank(blankIcon())
{
    setFont(Theme::systemFont(13, QFont::Medium));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFixedHeight(kHeight);
    setIconSize(QSize(kSymbolSize, kSymbolSize));
    setAccessibleDescription(u"Drukt de aangevinkte producten af"_s);
    m_busyIndicator->hide();
    if (parent)
        parent->installEventFilter(this);
    applyPalette();
}

void PrintButton::setBusy(bool busy)
{
    if (busy == m_busy)
        return;
    m_busy = busy;
    m_busyIndicator->setVisible(busy);
    showSymbol();
}

void PrintButton::resizeEvent(QResizeEvent* event)
{
    QPushButton::resizeEvent(event);
    // Where the style puts the icon: after the ring and the padding, centred in height.
    const int x = 2 + kPaddingX + (kSymbolSize - kBusyDiameter) / 2;
    m_busyIndicator->move(x, (height() - kBusyDiameter) / 2);
}

void PrintButton::changeEvent(QEvent* event)
{
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::ParentChange) {
        // The style sheet fixes this button's own palette, so a new palette reaches
        // it only through its parent's.
        if (parentWidget())
            parentWidget()->installEventFilter(this);
        applyPalette();
    } else if (event->type() == QEvent::EnabledChange) {
        showSymbol();
    }
}

bool PrintButton::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parentWidget() && event->type() == QEvent::PaletteChange)
        applyPalette();
    return QPushButton::eventFilter(watched, event);
}

// The colours follow the palette; they are worked out here, once per palette,
// not on every paint.
void PrintButton::applyPalette()
{
    // The parent's palette: the button's own carries what the style sheet set.
    const QPalette current = Theme::inheritedPalette(this);
    const QColor accent = Theme::accent(current);
    const QColor label = highlightedText(current);
    const QColor disabledFill = Theme::separator(current);
    const QColor disabledLabel = Theme::secondaryText(current);

    // A two pixel ring, transparent until the button has focus, keeps the size the same.
    const QString sheet =
        uR"(QPushButton { background: %1; color: %2; border: 2px solid transparent;
  border-radius: %3px; padding: 0px %4px; }
QPushButton:hover { background: %5; }
QPushButton:pressed { background: %6; }
QPushButton:focus { border-color: %7; }
QPushButton:disabled { background: %8; color: %9; })"_s.arg(accent.name(), label.name())
            .arg(kRadius)
            .arg(kPaddingX)
            .arg(accent.lighter(110).name(), accent.darker(125).name(),
                 Theme::primaryText(current).name(), disabledFill.name(), disabledLabel.name());
    if (sheet == styleSheet())
        return;
    m_symbol = SymbolIcons::tinted(u"printer.fill", label);
    m_disabledSymbol = SymbolIcons::tinted(u"printer.fill", disabledLabel);
    setStyleSheet(sheet);
    showSymbol();
}

void PrintButton::showSymbol()
{
    if (m_busy)
        setIcon(m_blank);
    else
        setIcon(isEnabled() ? m_symbol : m_disabledSymbol);
    m_busyIndicator->setColor(isEnabled() ? &highlightedText : &Theme::secondaryText);
}
