// The start-up baseline: the plainest Qt Widgets window with the product
// window's kinds of widgets and a table of 1,000 rows filled from memory, in a
// program that has an HTTP client (Qt Network) but sends nothing. It decodes,
// sorts and draws no icons and uses one font, so no product window that loads
// its catalogue over HTTPS can start faster. Reports once the table has painted.

#include "FirstPaintReporter.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QNetworkAccessManager>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kRows = 1'000;
constexpr int kColumns = 5;
constexpr int kRowHeight = 24;

class PlainModel : public QAbstractTableModel
{
public:
    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : kRows;
    }

    int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : kColumns;
    }

    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        const int row = index.row();
        switch (index.column()) {
        case 1:
            return u"ART-"_s + QString::number(10'000 + row);
        case 2:
            return u"Mok keramiek blauw "_s + QString::number(row % 60 + 1) + u" cm"_s;
        case 3:
            return QString::number(double(row % 20'000) / 100.0, 'f', 2);
        case 4:
            return QString::number(8'712'345'000'000LL + row);
        default:
            return {};
        }
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
            return {};
        static const QStringList titles{QString(), u"Artikelnr."_s, u"Naam"_s, u"Prijs"_s,
                                        u"Barcode"_s};
        return titles.value(section);
    }
};

QHBoxLayout* toolbarRow()
{
    auto* row = new QHBoxLayout;
    for (const QString& text : {u"Dossier"_s, u"Etiket"_s}) {
        auto* combo = new QComboBox;
        combo->addItem(text);
        row->addWidget(combo);
    }
    auto* search = new QLineEdit;
    search->setPlaceholderText(u"Zoeken..."_s);
    row->addWidget(search, 1);
    row->addWidget(new QPushButton(u"Vernieuwen"_s));
    return row;
}

QHBoxLayout* statusRow()
{
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(u"1000 producten"_s), 1);
    row->addWidget(new QLineEdit(u"1"_s));
    row->addWidget(new QPushButton(u"Start afdrukken"_s));
    return row;
}

QTableView* table(PlainModel& model)
{
    auto* view = new QTableView;
    view->setModel(&model);
    view->setShowGrid(false);
    view->setAlternatingRowColors(true);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->verticalHeader()->hide();
    view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view->verticalHeader()->setDefaultSectionSize(kRowHeight);
    return view;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QNetworkAccessManager network;
    QMainWindow window;
    for (const QString& title : {u"File"_s, u"View"_s, u"Settings"_s, u"Help"_s})
        window.menuBar()->addMenu(title);

    PlainModel model;
    QTableView* view = table(model);
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->addLayout(toolbarRow());
    column->addWidget(view, 1);
    column->addLayout(statusRow());
    window.setCentralWidget(content);

    FirstPaintReporter reporter([view](QWidget* widget) { return widget == view->viewport(); });
    window.resize(1000, 640);
    window.show();
    return QApplication::exec();
}
