// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Scaling.h"

#include "KestCircleProgressBar.h"
#include "KestNavigationBar.h"
#include "KestStageProgressBar.h"
#include "KestTitleBar.h"

#include <QtGui/QPalette>
#include <QtWidgets/QDial>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLCDNumber>
#include <QtWidgets/QLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListView>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyle>
#include <QtWidgets/QTreeView>

namespace {

const QColor PlaceholderColor(0x6E, 0x6E, 0x6E); // 5:1 on white

int scaled(int size, double rate)
{
    return size < QWIDGETSIZE_MAX ? qRound(size * rate) : size;
}

void scaleSizes(QWidget *widget, double rate)
{
    const QSize least = widget->minimumSize();
    const QSize most = widget->maximumSize();
    widget->setMaximumSize(scaled(most.width(), rate), scaled(most.height(), rate));
    widget->setMinimumSize(scaled(least.width(), rate), scaled(least.height(), rate));
}

// Views ask the style, which sheets do not answer for.
void scaleIcons(QAbstractItemView *view, double rate)
{
    const auto *list = qobject_cast<const QListView *>(view);
    QStyle::PixelMetric metric = QStyle::PM_SmallIconSize;
    if (list) {
        metric = list->viewMode() == QListView::IconMode ? QStyle::PM_IconViewIconSize
                                                         : QStyle::PM_ListViewIconSize;
    }
    const int size = qRound(view->style()->pixelMetric(metric, nullptr, view) * rate);
    view->setIconSize(QSize(size, size));
    if (auto *tree = qobject_cast<QTreeView *>(view))
        tree->setIndentation(qRound(tree->indentation() * rate));
}

int scaledValue(int value, double rate)
{
    return qRound(value * rate);
}

QSize scaledValue(const QSize &value, double rate)
{
    return value * rate;
}

template <typename Value>
void scaleProperty(QObject *object, const char *name, double rate)
{
    const QByteArray note = QByteArrayLiteral("unscaled_") + name;
    const auto now = object->property(name).value<Value>();
    QVariantList known = object->property(note).toList(); // unscaled, scaled, rate
    if (known.isEmpty())
        known = { QVariant::fromValue(now), QVariant::fromValue(now), 1.0 };
    auto unscaled = known.at(0).value<Value>();
    if (now != known.at(1).value<Value>())
        unscaled = scaledValue(now, 1 / known.at(2).toDouble());
    object->setProperty(name, QVariant::fromValue(scaledValue(unscaled, rate)));
    object->setProperty(
        note, QVariantList { QVariant::fromValue(unscaled), object->property(name), rate });
}

} // namespace

void scaleProperties(QWidget *root, double rate)
{
    const QList<KestStageProgressBar *> stages = root->findChildren<KestStageProgressBar *>();
    for (KestStageProgressBar *bar : stages)
        scaleProperty<int>(bar, "stageCircleRadius", rate);
    const QList<KestCircleProgressBar *> circles = root->findChildren<KestCircleProgressBar *>();
    for (KestCircleProgressBar *bar : circles) {
        scaleProperty<int>(bar, "barWidth", rate);
        scaleProperty<QSize>(bar, "minimumSize", rate);
    }
    const QList<QPushButton *> buttons = root->findChildren<QPushButton *>();
    for (QPushButton *button : buttons) {
        if (!button->icon().isNull())
            scaleProperty<QSize>(button, "iconSize", rate);
    }
    const QList<QLayout *> layouts = root->findChildren<QLayout *>();
    for (QLayout *layout : layouts) {
        if (layout->spacing() > 0) // and the same in both directions
            scaleProperty<int>(layout, "spacing", rate);
    }
}

void scaleOwnSizes(QWidget *widget, double rate)
{
    scaleSizes(widget, rate);
    QList<QWidget *> children = widget->findChildren<QWidget *>();
    for (QWidget *child : qAsConst(children)) {
        // What is in a dialog or on a title bar is up to who wrote it.
        const QWidget *const parent = child->parentWidget();
        if (!qobject_cast<QDialog *>(widget) && !qobject_cast<KestTitleBar *>(child)
            && !qobject_cast<const KestTitleBar *>(parent)) {
            scaleSizes(child, rate);
        }
    }
    children.prepend(widget);
    for (QWidget *child : qAsConst(children)) {
        if (auto *bar = qobject_cast<KestTitleBar *>(child)) {
            bar->setActionIconSize(bar->getActionIconSize() * rate);
            bar->setIconPos(bar->getIconPos() * rate);
            bar->setIconSize(bar->iconSize() * rate);
            bar->updateWindowIcon();
        } else if (auto *navigation = qobject_cast<KestNavigationBar *>(child)) {
            navigation->setIconSize(navigation->iconSize() * rate);
        } else if (auto *view = qobject_cast<QAbstractItemView *>(child)) {
            scaleIcons(view, rate);
        } else if (qobject_cast<QDial *>(child) || qobject_cast<QLCDNumber *>(child)) {
            child->setMinimumSize(child->sizeHint() * rate);
        }
    }
}

void lightenPlaceholders(QWidget *widget)
{
    const QList<QLineEdit *> edits = widget->findChildren<QLineEdit *>();
    for (QLineEdit *edit : edits) {
        QPalette palette = edit->palette();
        palette.setColor(QPalette::PlaceholderText, PlaceholderColor);
        edit->setPalette(palette);
    }
}
