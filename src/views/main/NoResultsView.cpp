#include "views/main/NoResultsView.h"

#include "views/common/SymbolLabel.h"
#include "views/common/Theme.h"
#include "views/common/ThemedLabel.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

NoResultsView::NoResultsView(const QString& searchText, QWidget* parent)
    : QWidget(parent),
      m_headline(new ThemedLabel(QString(), Theme::headline(), &Theme::primaryText, this))
{
    m_headline->setTextFormat(Qt::PlainText);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(16);
    layout->addStretch();
    layout->addWidget(new SymbolLabel(u"magnifyingglass"_s, 48, &Theme::secondaryText, this), 0,
                      Qt::AlignHCenter);
    layout->addWidget(m_headline, 0, Qt::AlignHCenter);
    layout->addWidget(new ThemedLabel(u"Probeer een andere zoekterm"_s, Theme::body(),
                                      &Theme::secondaryText, this),
                      0, Qt::AlignHCenter);
    layout->addStretch();
    setSearchText(searchText);
}

void NoResultsView::setSearchText(const QString& searchText)
{
    m_headline->setText(u"Geen resultaten voor \""_s + searchText + u"\""_s);
}

QString NoResultsView::headlineText() const
{
    return m_headline->text();
}
