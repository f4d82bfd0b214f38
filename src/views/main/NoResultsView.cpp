#include "views/main/NoResultsView.h"

#include <QLabel>

using namespace Qt::StringLiterals;

namespace {
QString headlineFor(const QString& searchText)
{
    return u"Geen resultaten voor \""_s + searchText + u"\""_s;
}
} // namespace

NoResultsView::NoResultsView(const QString& searchText, QWidget* parent)
    : PlaceholderView(symbol(u"magnifyingglass"_s), headlineFor(searchText),
                      u"Probeer een andere zoekterm"_s, parent)
{
    headline()->setTextFormat(Qt::PlainText);
}

void NoResultsView::setSearchText(const QString& searchText)
{
    headline()->setText(headlineFor(searchText));
}
