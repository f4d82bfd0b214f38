#include "views/main/PrintButton.h"

#include "views/common/BusyIndicator.h"
#include "views/common/SymbolIcons.h"
#include "views/common/Theme.h"

#include <QEvent>
#include <QHBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSymbolSize = 14;
constexpr int kHeight = 28; // large control size
// The small wheel is drawn at 0.7 of its usual 16 pixels inside the symbol's frame.
constexpr int kBusyDiameter = 11;
// The ring and the padding put the symbol this far from the left edge.
constexpr int kSymbolInset = 2 + 12;

// A two pixel ring, transparent until the button has focus, keeps the size the
// same. Disabled, the button is a neutral grey, which reads on light and dark
// palettes alike (style sheets know no palette role for secondary text).
constexpr auto kStyleSheet = uR"(
QPushButton { background: palette(highlight); color: palette(highlighted-text);
  border: 2px solid transparent; border-radius: 6px; padding: 0px 12px; }
QPushButton:hover { border-color: rgba(255, 255, 255, 64); }
QPushButton:pressed { border-color: rgba(0, 0, 0, 64); }
QPushButton:focus { border-color: palette(window-text); }
QPushButton:disabled { background: rgba(128, 128, 128, 80); color: rgb(128, 128, 128); }
)";

// The grey of the disabled button's text, as the style sheet has it.
const QColor kDisabledText(128, 128, 128);

} // namespace

PrintButton::PrintButton(QWidget* parent)
    : QPushButton(u"Start afdrukken"_s, parent), m_wheel(new BusyIndicator(kBusyDiameter, this))
{
    setFont(Theme::systemFont(13, QFont::Medium));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFixedHeight(kHeight);
    setIconSize(QSize(kSymbolSize, kSymbolSize));
    setAccessibleDescription(u"Drukt de aangevinkte producten af"_s);
    // The wheel stands where the style draws the symbol, which a blank icon keeps free.
    m_wheel->setFixedSize(kSymbolSize, kSymbolSize);
    QPalette grey = m_wheel->palette();
    grey.setColor(m_wheel->foregroundRole(), kDisabledText);
    m_wheel->setPalette(grey);
    m_wheel->hide();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kSymbolInset, 0, 0, 0);
    layout->addWidget(m_wheel, 0, Qt::AlignLeft | Qt::AlignVCenter);
    setStyleSheet(QString::fromUtf16(kStyleSheet));
    showSymbol();
}

void PrintButton::setBusy(bool busy)
{
    if (busy == m_busy)
        return;
    m_busy = busy;
    m_wheel->setVisible(busy);
    showSymbol();
}

void PrintButton::changeEvent(QEvent* event)
{
    QPushButton::changeEvent(event);
    // Theme applies the style sheet again after a palette change.
    if (event->type() == QEvent::EnabledChange || event->type() == QEvent::StyleChange)
        showSymbol();
}

void PrintButton::showSymbol()
{
    if (m_busy) {
        QPixmap blank(kSymbolSize, kSymbolSize);
        blank.fill(Qt::transparent);
        setIcon(QIcon(blank));
        return;
    }
    const QColor color =
        isEnabled() ? palette().color(QPalette::Active, QPalette::HighlightedText) : kDisabledText;
    setIcon(SymbolIcons::tinted(u"printer.fill", color, kSymbolSize));
}
