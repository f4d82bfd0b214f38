#include "views/common/PlaceholderView.h"

#include "views/common/SymbolIcons.h"
#include "views/common/SymbolLabel.h"
#include "views/common/Theme.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

PlaceholderView::PlaceholderView(QWidget* picture, const QString& headline, const QString& detail,
                                 QWidget* parent)
    : QWidget(parent), m_column(new QVBoxLayout(this))
{
    m_column->setSpacing(16);
    m_column->addStretch();
    m_column->addStretch();
    add(picture);
    if (!headline.isEmpty())
        m_headline = add(Theme::label(headline, Theme::headline(), QPalette::WindowText));
    if (!detail.isEmpty())
        m_detail = addLine(detail, Theme::body());
}

QWidget* PlaceholderView::symbol(const QString& symbolName)
{
    return new SymbolLabel(symbolName, SymbolIcons::kLargestSize, Theme::kSecondaryText);
}

QLabel* PlaceholderView::addLine(const QString& text, const QFont& font)
{
    return add(Theme::label(text, font, Theme::kSecondaryText));
}

QPushButton* PlaceholderView::addButton(const QString& text)
{
    auto* button = add(new QPushButton(text));
    button->setFont(Theme::body());
    return button;
}
