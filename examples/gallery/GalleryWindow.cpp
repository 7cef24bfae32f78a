// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "GalleryWindow.h"

#include "GalleryPages.h"
#include "KestDialog.h"
#include "KestNavigationBar.h"
#include "KestStyleSheet.h"
#include "KestTitleBar.h"
#include "Scaling.h"

#include <QActionGroup>
#include <QtCore/QUrl>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QTableView>
#include <QtWidgets/QWidgetAction>

namespace {

const QSize InitialSize(1100, 760); // pixels
const int ListWidth = 215; // pixels
const int ColumnWidth = 100; // pixels, of tables
const int RowHeight = 30; // pixels, of tables
const int NavigationHeight = 50; // pixels
const QSize LeastSize(720, 480); // pixels
const QSize ActionIconSize(16, 16); // pixels
const QSize WindowIconSize(20, 20); // pixels

QIcon libraryIcon(const char *name)
{
    return QIcon(QStringLiteral(":/KestWidgets/Resources/") + QLatin1String(name));
}

QIcon logo(const char *name)
{
    return QIcon(QStringLiteral(":/kest/Resources/image/") + QLatin1String(name));
}

} // namespace

GalleryWindow::GalleryWindow(QWidget *parent) : KestWindow(parent)
{
    m_iconPos = titleBar()->getIconPos();
    createPages();
    setWindowIcon(logo("kest.png"));
    createMenus();
    createTitleBarActions();
    createNavigationBar();
    createStatusBar();
    resize(InitialSize);
    setCurrentPage(0);
    applyLook();
}

QList<int> GalleryWindow::scales()
{
    return { 100, 125, 150, 175, 200 };
}

int GalleryWindow::pageCount() const
{
    return m_stack->count();
}

QWidget *GalleryWindow::page(int index) const
{
    return static_cast<QScrollArea *>(m_stack->widget(index))->widget();
}

void GalleryWindow::setCurrentPage(int index)
{
    m_list->setCurrentRow(index);
}

void GalleryWindow::setTheme(int index)
{
    m_theme = index;
    m_themeActions->actions().at(index)->setChecked(true);
    applyLook();
}

void GalleryWindow::setScale(int percent)
{
    m_scale = percent;
    for (QAction *action : m_scaleActions->actions())
        action->setChecked(action->data().toInt() == percent);
    applyLook();
}

void GalleryWindow::createPages()
{
    auto *central = new QWidget;
    central->setWindowTitle(tr("KestWidgets Gallery"));

    m_list = new QListWidget;
    m_list->setObjectName(QStringLiteral("pageList"));
    m_list->setStyleSheet(
        QStringLiteral("QListWidget { border: none; border-right: 1px solid #D9D9D9; }"
                       "QListWidget::item { min-height: 32px; padding-left: 12px; }"));
    m_stack = new QStackedWidget;
    const QList<QWidget *> pages = createGalleryPages();
    for (QWidget *page : pages) {
        m_list->addItem(page->windowTitle());
        auto *area = new QScrollArea;
        area->setFrameShape(QFrame::NoFrame);
        area->setFocusPolicy(Qt::NoFocus); // what is on the page has it
        area->setWidgetResizable(true);
        area->setWidget(page);
        m_stack->addWidget(area);
    }
    connect(m_list, &QListWidget::currentRowChanged, m_stack, &QStackedWidget::setCurrentIndex);

    auto *layout = new QHBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_list);
    layout->addWidget(m_stack, 1);
    setCentralWidget(central);
}

void GalleryWindow::createMenus()
{
    QMenu *const file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Quit"), this, &QWidget::close, QKeySequence(Qt::CTRL | Qt::Key_Q));

    QMenu *const view = menuBar()->addMenu(tr("&View"));
    QMenu *const theme = view->addMenu(tr("&Theme"));
    m_themeActions = new QActionGroup(this);
    for (int i = 0; i < m_themes.size(); ++i) {
        QAction *const action =
            theme->addAction(m_themes.at(i).name, this, [this, i] { setTheme(i); });
        action->setCheckable(true);
        action->setChecked(i == m_theme);
        m_themeActions->addAction(action);
    }
    QMenu *const scale = view->addMenu(tr("&Scale"));
    m_scaleActions = new QActionGroup(this);
    for (const int percent : scales()) {
        QAction *const action =
            scale->addAction(tr("%1 %").arg(percent), this, [this, percent] { setScale(percent); });
        action->setCheckable(true);
        action->setChecked(percent == m_scale);
        action->setData(percent);
        m_scaleActions->addAction(action);
    }

    QMenu *const help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&About"), this, &GalleryWindow::about);
}

void GalleryWindow::createTitleBarActions()
{
    m_search = new QAction(tr("Search"), this);
    m_search->setToolTip(tr("Show the first page"));
    connect(m_search, &QAction::triggered, this, [this] { setCurrentPage(0); });
}

void GalleryWindow::createNavigationBar()
{
    KestNavigationBar *const bar = navigationBar();
    bar->addLogo(logo("logo_kest.png"), KestNavigationBar::Left);
    bar->addSeparator(KestNavigationBar::Left)->setParent(bar);

    // One button for each of the first pages, in the middle.
    for (int i = 0; i < qMin(3, pageCount()); ++i) {
        QAction *const action = bar->addAction(page(i)->windowTitle(), KestNavigationBar::Center);
        connect(action, &QAction::triggered, this, [this, i] { setCurrentPage(i); });
        action->setCheckable(true);
        connect(m_list, &QListWidget::currentRowChanged, action,
                [action, i](int row) { action->setChecked(row == i); });
    }

    bar->addHelp(QUrl(QStringLiteral("https://doc.qt.io/qt-5/")), QIcon(), KestNavigationBar::Right)
        ->setObjectName(QStringLiteral("help"));
    bar->addSeparator(KestNavigationBar::Right)->setParent(bar);
    QAction *const user =
        bar->addUser(libraryIcon("people-light.png"), tr("Guest"), KestNavigationBar::Right);
    user->setObjectName(QStringLiteral("user"));
}

void GalleryWindow::createStatusBar()
{
    statusBar()->showMessage(tr("Ready"));
    connect(m_list, &QListWidget::currentTextChanged, statusBar(),
            [this](const QString &name) { statusBar()->showMessage(name); });
}

void GalleryWindow::applyLook()
{
    const double rate = m_scale / 100.0;
    // The application's sheet is scaled as a whole, the sheets of single widgets by the walk.
    m_themes.at(m_theme).apply(rate);
    ChangeObjectSizeAndFontSize(this, rate, rate);
    // What the program itself has given a size is its own to scale.
    m_list->setFixedWidth(qRound(ListWidth * rate));
    setMinimumSize(LeastSize * rate);
    const QList<QTableView *> tables = findChildren<QTableView *>();
    for (QTableView *table : tables) {
        table->verticalHeader()->setDefaultSectionSize(qRound(RowHeight * rate));
        table->horizontalHeader()->setDefaultSectionSize(qRound(ColumnWidth * rate));
    }
    navigationBar()->setFixedHeight(qRound(NavigationHeight * rate));
    navigationBar()->setIconSize(ActionIconSize * rate);
    titleBar()->setActionIconSize(ActionIconSize * rate);
    // The walk has told the title bar to enlarge its icon; a larger icon is sharper.
    titleBar()->setProperty("geoRate", 1.0);
    titleBar()->setIconSize(WindowIconSize * rate);
    titleBar()->setIconPos(m_iconPos * rate);
    titleBar()->updateWindowIcon();
    lightenPlaceholders(this);

    // The title bar drops actions that change, so this one is put on it anew.
    titleBar()->removeAction(m_search);
    m_search->setIcon(
        libraryIcon(m_themes.at(m_theme).darkTitle ? "search.png" : "search-light.png"));
    titleBar()->addAction(m_search);
}

void GalleryWindow::about()
{
    KestDialog dialog(this);
    dialog.setWindowTitle(tr("About the gallery"));
    auto *text = new QLabel(tr("<h3>KestWidgets %1</h3><p>Frameless windows and widgets for Qt "
                               "applications.</p>")
                                .arg(QStringLiteral("2.0.6.1")));
    text->setMargin(24);
    dialog.setCentralWidget(text);
    dialog.exec();
}
