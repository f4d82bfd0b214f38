#include "views/common/PlaceholderView.h"

#include "views/common/SymbolLabel.h"
#include "views/common/Theme.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int kSymbolSize = 48;
} // namespace

PlaceholderView::PlaceholderView(QWidget* picture, const QString& headline, const QString& detail,
                                 QWidget* parent)
    : QWidget(parent), m_column(new QVBoxLayout(this))
{
    m_column->setSpacing(16);
    m_column->addStretch();
    m_column->addStretch();
    add(picture);
    if (!headline.isEmpty()) {
        m_headline = Theme::label(headline, Theme::headline(), QPalette::WindowText);
        add(m_headline);
    }
    if (!detail.isEmpty())
        m_detail = addLine(detail, Theme::body());
}

QWidget* PlaceholderView::symbol(const QString& symbolName)
{
    return new SymbolLabel(symbolName, kSymbolSize, Theme::kSecondaryText);
}

QLabel* PlaceholderView::addLine(const QString& text, const QFont& font)
{
    auto* line = Theme::label(text, font, Theme::kSecondaryText);
    add(line);
    return line;
}

QPushButton* PlaceholderView::addButton(const QString& text)
{
    auto* button = new QPushButton(text);
    button->setFont(Theme::body());
    add(button);
    return button;
}

void PlaceholderView::add(QWidget* widget)
{
    // Between the two stretches, which keep the column centred.
    m_column->insertWidget(m_column->count() - 1, widget, 0, Qt::AlignHCenter);
}
