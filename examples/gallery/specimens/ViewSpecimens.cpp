// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Poses.h"

#include <QtGui/QStandardItemModel>
#include <QtWidgets/QCalendarWidget>
#include <QtWidgets/QColumnView>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QListView>
#include <QtWidgets/QTableView>
#include <QtWidgets/QTreeView>

namespace {

using namespace Poses;

const QSize ViewSize(190, 120); // pixels
const QString Normal = QStringLiteral("normal");
const QString Selected = QStringLiteral("selected");

QStandardItem *createItem(const QString &text)
{
    auto *item = new QStandardItem(text);
    item->setEditable(false);
    return item;
}

QStandardItem *createCheckItem(const QString &text, Qt::CheckState state)
{
    QStandardItem *const item = createItem(text);
    item->setCheckable(true);
    item->setCheckState(state);
    return item;
}

// A folder with a file, an icon, two check boxes, a disabled entry.
QStandardItemModel *createModel(QObject *parent)
{
    auto *model = new QStandardItemModel(parent);
    model->setHorizontalHeaderLabels({ QStringLiteral("Name"), QStringLiteral("Kind") });
    QStandardItem *const folder = createItem(QStringLiteral("Folder"));
    folder->appendRow({ createCheckItem(QStringLiteral("File"), Qt::Checked),
                        createItem(QStringLiteral("Text")) });
    folder->setIcon(icon());
    QStandardItem *const closed = createCheckItem(QStringLiteral("Closed"), Qt::PartiallyChecked);
    closed->appendRow(createItem(QStringLiteral("File")));
    QStandardItem *const off = createCheckItem(QStringLiteral("Disabled"), Qt::Unchecked);
    off->setEnabled(false);
    model->appendRow({ folder, createItem(QStringLiteral("Folder")) });
    model->appendRow({ closed, createItem(QStringLiteral("Folder")) });
    model->appendRow({ off, createItem(QStringLiteral("None")) });
    return model;
}

template <typename View>
View *createView()
{
    auto *view = new View;
    view->setModel(createModel(view));
    view->setFixedSize(ViewSize);
    return view;
}

QWidget *createTree()
{
    auto *tree = createView<QTreeView>();
    tree->expand(tree->model()->index(0, 0));
    return tree;
}

QWidget *createTable()
{
    auto *table = createView<QTableView>();
    table->setAlternatingRowColors(true);
    table->setCornerButtonEnabled(true);
    table->setSortingEnabled(false);
    table->horizontalHeader()->setSortIndicatorShown(true);
    table->horizontalHeader()->setSectionsClickable(true);
    table->horizontalHeader()->resizeSections(QHeaderView::ResizeToContents);
    return table;
}

QHeaderView *headerOf(QWidget *table)
{
    return static_cast<QTableView *>(table)->horizontalHeader();
}

Pose onHeader(void (*event)(QWidget *, const QPoint &))
{
    return [event](QWidget *table) {
        QHeaderView *const header = headerOf(table);
        const int x = header->sectionViewportPosition(0) + header->sectionSize(0) / 2;
        event(header->viewport(), QPoint(x, header->height() / 2));
    };
}

// Without the focus the current item is hidden from a user who does not use the keyboard.
Pose currentOnly(int row)
{
    return [row](QWidget *widget) {
        tabInto(widget);
        auto *view = static_cast<QAbstractItemView *>(widget);
        view->selectionModel()->setCurrentIndex(view->model()->index(row, 0),
                                                QItemSelectionModel::NoUpdate);
    };
}

QVector<SpecimenState> viewStates()
{
    const Pose active = both(focus(), currentItem(1));
    return {
        normalState(),
        { QStringLiteral("focus"), currentOnly(0), Normal },
        { QStringLiteral("current"), currentOnly(1), QStringLiteral("focus") },
        { QStringLiteral("hover"), hoverItem(1), Normal },
        { Selected, active, Normal },
        { QStringLiteral("selected without focus"), currentItem(1), Normal },
        { QStringLiteral("selected focus"), active, QStringLiteral("selected without focus") },
        { QStringLiteral("selected hover"), both(currentItem(1), hoverItem(1)),
          QStringLiteral("hover") },
        disabledState(),
        { QStringLiteral("disabled selected"), both(currentItem(1), disabled()),
          QStringLiteral("disabled") },
        { QStringLiteral("selected disabled"), both(currentItem(1), disabled()),
          QStringLiteral("selected without focus") },
    };
}

} // namespace

QVector<Specimen> Specimens::views()
{
    const auto createList = [] { return createView<QListView>(); };
    const auto createIcons = [] {
        auto *list = createView<QListView>();
        list->setViewMode(QListView::IconMode);
        return list;
    };
    const auto createCalendar = [] {
        auto *calendar = new QCalendarWidget;
        calendar->setSelectedDate(QDate(2026, 11, 21));
        calendar->setGridVisible(false);
        return calendar;
    };
    const auto sorted = [](QWidget *table) {
        headerOf(table)->setSortIndicator(0, Qt::AscendingOrder);
    };
    const QVector<SpecimenState> headerStates {
        { QStringLiteral("header hover"), onHeader(hoverAt), Normal },
        { QStringLiteral("header pressed"), onHeader(pressAt), QStringLiteral("header hover") },
        { QStringLiteral("header sorted"), sorted, Normal },
    };
    const auto calendarPart = [](const char *name) { return child(name, hover()); };
    return {
        { QStringLiteral("QListView"), createList, viewStates() },
        { QStringLiteral("QListView icons"), createIcons, { normalState(), disabledState() } },
        { QStringLiteral("QTreeView"), createTree, viewStates() },
        { QStringLiteral("QTableView"), createTable, viewStates() + headerStates },
        { QStringLiteral("QColumnView"),
          createView<QColumnView>,
          { normalState(), disabledState() } },
        { QStringLiteral("QCalendarWidget"),
          createCalendar,
          { normalState(),
            { QStringLiteral("focus"), child("qt_calendar_calendarview", focus()), Normal },
            { QStringLiteral("month hover"), calendarPart("qt_calendar_monthbutton"), Normal },
            { QStringLiteral("next hover"), calendarPart("qt_calendar_nextmonth"), Normal },
            disabledState() } },
    };
}
