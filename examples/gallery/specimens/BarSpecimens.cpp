// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Poses.h"

#include "KestColor.h"
#include "KestNavigationBar.h"
#include "KestTitleBar.h"

#include <QAction>
#include <QtCore/QUrl>
#include <QtGui/QIcon>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QVBoxLayout>

namespace {

using namespace Poses;

const int BarWidth = 640; // pixels
const QSize IconSize(16, 16); // pixels
const QString Normal = QStringLiteral("normal");

QIcon icon(const char *name)
{
    return QIcon(QStringLiteral(":/KestWidgets/Resources/") + QLatin1String(name));
}

QIcon logo()
{
    return QIcon(QStringLiteral(":/kest/Resources/image/logo_kest.png"));
}

// A title bar belongs to a window, whose title and icon it shows.
QWidget *createTitleBar(bool menus)
{
    auto *window = new QWidget;
    window->setWindowTitle(QStringLiteral("Title"));
    window->setWindowIcon(QIcon(QStringLiteral(":/kest/Resources/image/kest.png")));
    window->setFixedWidth(BarWidth);
    auto *layout = new QVBoxLayout(window);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *bar = new KestTitleBar(window);
    bar->setIconSize(QSize(20, 20));
    bar->updateWindowIcon();
    bar->setActionIconSize(IconSize);
    if (menus) {
        for (const char *name : { "File", "View" })
            bar->menuBar()->addMenu(QString::fromLatin1(name))->addAction(QStringLiteral("Entry"));
    }
    // As a program has to choose it, by the ground that the theme gives the bar.
    bar->ensurePolished();
    const bool dark = isLight(bar->palette().color(QPalette::WindowText));
    auto *action = new QAction(icon(dark ? "search.png" : "search-light.png"), QString(), bar);
    action->setObjectName(QStringLiteral("search"));
    bar->addAction(action);
    auto *named = new QAction(QStringLiteral("Text"), bar);
    named->setObjectName(QStringLiteral("named"));
    bar->addAction(named);
    layout->addWidget(bar);
    return window;
}

void selectMenu(QWidget *window)
{
    auto *menus = window->findChild<QMenuBar *>();
    hoverAt(menus, menus->actionGeometry(menus->actions().first()).center());
}

void setMaximised(QWidget *window)
{
    window->findChild<QWidget *>(QStringLiteral("maximumSizeBtn"))
        ->setProperty("maximumsized", true);
}

QVector<SpecimenState> titleBarStates()
{
    QVector<SpecimenState> states { normalState() };
    for (const char *button :
         { "closeBtn", "minimumSizeBtn", "maximumSizeBtn", "search", "named" }) {
        const QString hovered = QLatin1String(button) + QStringLiteral(" hover");
        states.append({ hovered, child(button, hover()), Normal });
        states.append({ QLatin1String(button) + QStringLiteral(" pressed"), child(button, press()),
                        hovered });
    }
    states.append({ QStringLiteral("maximised"), setMaximised, Normal });
    states.append(disabledState());
    return states;
}

KestNavigationBar *createNavigationBar()
{
    auto *bar = new KestNavigationBar;
    bar->setMinimumWidth(BarWidth);
    bar->addLogo(logo(), KestNavigationBar::Left);
    bar->addSeparator(KestNavigationBar::Left)->setParent(bar);
    for (const char *name : { "First", "Second" }) {
        QAction *const action =
            bar->addAction(QString::fromLatin1(name), KestNavigationBar::Center);
        action->setObjectName(QString::fromLatin1(name));
        action->setCheckable(true);
    }
    bar->addAction(icon("search-light.png"), QStringLiteral("Icon"), KestNavigationBar::Center)
        ->setObjectName(QStringLiteral("icon"));
    bar->addHelp(QUrl(), QIcon(), KestNavigationBar::Right)->setObjectName(QStringLiteral("help"));
    bar->addUser(icon("people-light.png"), QStringLiteral("Guest"), KestNavigationBar::Right)
        ->setObjectName(QStringLiteral("user"));
    return bar;
}

Pose checkFirst()
{
    return [](QWidget *bar) {
        auto *navigation = static_cast<KestNavigationBar *>(bar);
        navigation->actionAt(0, KestNavigationBar::Center)->setChecked(true);
    };
}

QVector<SpecimenState> navigationBarStates()
{
    QVector<SpecimenState> states { normalState() };
    for (const char *button : { "First", "icon", "help", "user" }) {
        const QString hovered = QLatin1String(button) + QStringLiteral(" hover");
        states.append({ hovered, child(button, hover()), Normal });
        states.append({ QLatin1String(button) + QStringLiteral(" pressed"), child(button, press()),
                        hovered });
        states.append(
            { QLatin1String(button) + QStringLiteral(" focus"), child(button, focus()), Normal });
    }
    const QString checked = QStringLiteral("checked");
    states.append({ checked, checkFirst(), Normal });
    states.append({ QStringLiteral("checked hover"), both(checkFirst(), child("First", hover())),
                    QStringLiteral("First hover") });
    states.append({ QStringLiteral("checked pressed"), both(checkFirst(), child("First", press())),
                    QStringLiteral("checked hover") });
    states.append(disabledState());
    return states;
}

} // namespace

QVector<Specimen> Specimens::bars()
{
    return {
        { QStringLiteral("KestTitleBar"), [] { return createTitleBar(false); }, titleBarStates() },
        { QStringLiteral("KestTitleBar menu"),
          [] { return createTitleBar(true); },
          { normalState(),
            { QStringLiteral("menu hover"), selectMenu, Normal },
            disabledState() } },
        { QStringLiteral("KestNavigationBar"), createNavigationBar, navigationBarStates() },
    };
}
