#include "views/settings/SettingsSidebar.h"

#include "viewmodels/SettingsViewModel.h"
#include "views/common/SymbolIcons.h"
#include "views/common/Theme.h"
#include "views/settings/SettingsRecordKind.h"
#include "views/settings/SettingsSidebarDelegate.h"
#include "views/settings/SettingsSidebarModel.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QToolButton>

using namespace Qt::StringLiterals;
using Kind = SettingsTabKey::Kind;

namespace {

constexpr int kMargin = 16;
constexpr int kPlusBox = 20;
constexpr int kPlusSize = 11;
// The divider line with 8 above and below.
constexpr int kMinDivider = 2 * 8 + 1;
// The "+" button ends at the header's right padding.
constexpr int kPlusRight = 12;

} // namespace

SettingsSidebar::SettingsSidebar(SettingsViewModel& model, QWidget* parent)
    : QTreeView(parent), m_viewModel(model),
      m_model(new SettingsSidebarModel(model.settings(), this)),
      m_delegate(new SettingsSidebarDelegate(this))
{
    setObjectName(u"sidebarView"_s);
    setAccessibleName(u"Zijbalk"_s);
    setFixedWidth(kWidth);
    setModel(m_model);
    setItemDelegate(m_delegate);
    setHeaderHidden(true);
    header()->setStretchLastSection(false);
    setRootIsDecorated(false);
    setIndentation(0);
    setExpandsOnDoubleClick(false);
    // Qt's animation draws the moving rows on the base colour and leaves the
    // "+" buttons at their final places meanwhile; groups open at once.
    setAnimated(false);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);

    for (const SettingsRecordKind& kind : SettingsRecordKind::all()) {
        // Beside the tree, not in its viewport: a screen reader sees the cells of
        // an item view only, so buttons inside it would be out of its reach.
        auto* plus = new QToolButton(this);
        plus->setIcon(SymbolIcons::tinted(u"plus", palette().color(Theme::kSecondaryText)));
        plus->setIconSize(QSize(kPlusSize, kPlusSize));
        plus->setFixedSize(kPlusBox, kPlusBox);
        plus->setAutoRaise(true);
        plus->setToolTip(kind.addName);
        plus->setAccessibleName(kind.addName);
        plus->setCursor(Qt::PointingHandCursor);
        // The view is the Tab stop; "+" and Insert on a header add from the keyboard.
        plus->setFocusPolicy(Qt::NoFocus);
        connect(plus, &QToolButton::clicked, this,
                [this, k = kind.kind] { m_viewModel.addRecord(k); });
        m_addButtons.append(plus);
    }

    connect(this, &QTreeView::expanded, this, [this](const QModelIndex& group) {
        m_viewModel.setExpanded(m_model->kindOf(group), true);
    });
    connect(this, &QTreeView::collapsed, this, [this](const QModelIndex& group) {
        m_viewModel.setExpanded(m_model->kindOf(group), false);
    });
    connect(&m_viewModel, &SettingsViewModel::expandedChanged, this,
            &SettingsSidebar::applyExpanded);
    connect(&m_viewModel, &SettingsViewModel::selectedTabChanged, this,
            &SettingsSidebar::syncSelection);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &SettingsSidebar::takeSelection);
    // A new list length arrives as a reset, which forgets the open groups and the selection.
    connect(m_model, &QAbstractItemModel::modelReset, this, [this] {
        applyExpanded();
        syncSelection();
    });
    applyExpanded();
    syncSelection();
}

QToolButton* SettingsSidebar::addButton(Kind kind) const
{
    const QModelIndex group = m_model->groupIndex(kind);
    return group.isValid() ? m_addButtons.at(group.row()) : nullptr;
}

void SettingsSidebar::applyExpanded()
{
    for (int group = 0; group < SettingsSidebarModel::kGroupCount; ++group) {
        const QModelIndex index = m_model->index(group, 0);
        setExpanded(index, m_viewModel.isExpanded(m_model->kindOf(index)));
    }
}

void SettingsSidebar::toggleGroup(Kind group)
{
    m_viewModel.setExpanded(group, !m_viewModel.isExpanded(group));
}

void SettingsSidebar::syncSelection()
{
    const QModelIndex row = m_model->indexOfKey(m_viewModel.selectedTab());
    if (!row.isValid())
        selectionModel()->clearSelection();
    else if (!selectionModel()->isSelected(row))
        selectionModel()->setCurrentIndex(row, QItemSelectionModel::ClearAndSelect);
}

void SettingsSidebar::takeSelection()
{
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    if (selected.isEmpty())
        syncSelection();
    else
        m_viewModel.setSelectedTab(
            selected.constFirst().data(SettingsSidebarModel::keyRole).toString());
}

QItemSelectionModel::SelectionFlags SettingsSidebar::selectionCommand(const QModelIndex& index,
                                                                      const QEvent* event) const
{
    // Headers and empty texts take the keyboard's place but not the selection.
    if (!(m_model->flags(index) & Qt::ItemIsSelectable))
        return QItemSelectionModel::NoUpdate;
    return QTreeView::selectionCommand(index, event);
}

void SettingsSidebar::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    const Kind group = m_model->kindOf(index);
    if (group == Kind::none || event->button() != Qt::LeftButton) {
        QTreeView::mousePressEvent(event);
        return;
    }
    setFocus(Qt::MouseFocusReason);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    toggleGroup(group);
}

void SettingsSidebar::keyPressEvent(QKeyEvent* event)
{
    const Kind group = m_model->kindOf(currentIndex());
    if (group != Kind::none) {
        switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            if (!event->isAutoRepeat())
                toggleGroup(group);
            return;
        case Qt::Key_Plus:
        case Qt::Key_Insert:
            m_viewModel.addRecord(group);
            return;
        default:
            break;
        }
    }
    QTreeView::keyPressEvent(event);
}

void SettingsSidebar::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    // Qt opens the group of a record it scrolls to; a selection made
    // elsewhere (e.g. "Printer Toevoegen") leaves the group as it is.
    if (!index.parent().isValid() || isExpanded(index.parent()))
        QTreeView::scrollTo(index, hint);
}

void SettingsSidebar::updateGeometries()
{
    // QTreeView's own version keeps the margins for its header and sets the
    // scroll range; the sidebar has no header and does not scroll.
    setViewportMargins(kMargin, kMargin, kMargin, kMargin);
    header()->resizeSection(0, viewport()->width());
    QAbstractItemView::updateGeometries();
    placeAddButtons();
    fitDivider();
}

void SettingsSidebar::moveEvent(QMoveEvent* event)
{
    QTreeView::moveEvent(event);
    placeAddButtons();
}

void SettingsSidebar::placeAddButtons()
{
    QWidget* host = parentWidget();
    for (int group = 0; group < m_addButtons.size(); ++group) {
        const QRect header = visualRect(m_model->index(group, 0));
        QToolButton* plus = m_addButtons.at(group);
        if (host && plus->parentWidget() != host)
            plus->setParent(host);
        const QPoint place(header.right() + 1 - kPlusRight - kPlusBox,
                           header.top() + (32 - kPlusBox) / 2);
        plus->move(host ? viewport()->mapTo(host, place) : place);
        plus->setVisible(header.isValid());
        plus->raise();
    }
}

void SettingsSidebar::fitDivider()
{
    // "Over" stands at the bottom: the divider row takes the height left over.
    int used = 0;
    int divider = 0;
    for (QModelIndex row = m_model->index(0, 0); row.isValid(); row = indexBelow(row)) {
        if (row.data(SettingsSidebarModel::entryRole).value<SettingsSidebarModel::Entry>() ==
            SettingsSidebarModel::Entry::divider)
            divider = rowHeight(row);
        else
            used += rowHeight(row);
    }
    const int wanted = std::max(kMinDivider, viewport()->height() - used);
    if (wanted != divider) {
        m_delegate->setDividerHeight(wanted);
        scheduleDelayedItemsLayout();
    }
}
