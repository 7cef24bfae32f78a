// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "GalleryWindow.h"

#include "GalleryPages.h"
#include "KestColor.h"
#include "KestDialog.h"
#include "KestNavigationBar.h"
#include "KestStyleSheet.h"
#include "KestSwitchButton.h"
#include "KestTitleBar.h"
#include "PageList.h"
#include "Scaling.h"
#include "SourcePane.h"
#include "pages/OverviewPage.h"
#include "pages/PropertyForm.h"
#include "pages/StyleSheetPage.h"

#include <QActionGroup>
#include <QtCore/QRegularExpression>
#include <QtCore/QSettings>
#include <QtCore/QUrl>
#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QTableView>
#include <QtWidgets/QWidgetAction>

namespace {

const QSize InitialSize(1440, 800); // pixels
const int SourceWidth = 410; // pixels, at first
const int ListWidth = 215; // pixels
const int ColumnWidth = 100; // pixels, of tables
const int RowHeight = 30; // pixels, of tables
const int NavigationHeight = 50; // pixels
const QSize LeastSize(720, 480); // pixels
const QSize ActionIconSize(16, 16); // pixels
const QSize SwitchSize(48, 24); // pixels
const QSize WindowIconSize(20, 20); // pixels
const char GeometryKey[] = "geometry";

QIcon libraryIcon(const char *name)
{
    return QIcon(QStringLiteral(":/KestWidgets/Resources/") + QLatin1String(name));
}

QIcon logo(const char *name)
{
    return QIcon(QStringLiteral(":/kest/Resources/image/") + QLatin1String(name));
}

// The classes that a source includes, as words to find its page by.
QStringList classesIn(const QString &source)
{
    static const QRegularExpression include(
        QStringLiteral(R"(#include [<"](?:Qt\w+/)?((?:Q|Kest)\w+))"));
    QStringList classes;
    QRegularExpressionMatchIterator matches = include.globalMatch(source);
    while (matches.hasNext())
        classes.append(matches.next().captured(1));
    return classes;
}

// Sheets do not tell: what the bar is painted with decides which icons are seen on it.
bool isDark(QWidget *bar)
{
    const QPoint corner(bar->width() / 2, 1);
    return !isLight(bar->grab(QRect(corner, QSize(1, 1))).toImage().pixelColor(0, 0));
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
    m_list->takeFocus();
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
    m_list->setCurrentPage(index);
}

void GalleryWindow::setTheme(int index)
{
    setLook(m_themes.at(index), m_scale);
}

void GalleryWindow::setScale(int percent)
{
    setLook(m_theme, percent);
}

void GalleryWindow::setLook(const Theme &theme, int percent)
{
    m_theme = theme;
    m_scale = percent;
    applyLook();
}

void GalleryWindow::setFontSize(double points)
{
    m_fontSize = points;
    applyLook();
}

void GalleryWindow::restorePlace(const QSettings &settings)
{
    if (!restoreGeometry(settings.value(QLatin1String(GeometryKey)).toByteArray()))
        resize(InitialSize.boundedTo(screen()->availableSize()));
}

void GalleryWindow::savePlace(QSettings *settings) const
{
    settings->setValue(QLatin1String(GeometryKey), saveGeometry());
}

void GalleryWindow::createPages()
{
    auto *central = new QWidget;
    central->setWindowTitle(tr("KestWidgets Gallery"));

    m_list = new PageList;
    m_stack = new QStackedWidget;
    const QList<QWidget *> pages = createGalleryPages();
    for (QWidget *page : pages) {
        m_list->addPage(page->windowTitle(), classesIn(SourcePane::sourceOf(page)));
        auto *area = new QScrollArea;
        area->setFrameShape(QFrame::NoFrame);
        area->setFocusPolicy(Qt::NoFocus); // what is on the page has it
        area->setWidgetResizable(true);
        area->setWidget(page);
        m_stack->addWidget(area);
        if (auto *overview = qobject_cast<OverviewPage *>(page)) {
            m_overview = overview;
            connect(overview, &OverviewPage::pageWanted, m_list, &PageList::choose);
        } else if (auto *editor = qobject_cast<StyleSheetPage *>(page))
            m_editor = editor;
    }
    connect(m_list, &PageList::currentPageChanged, this, &GalleryWindow::showPage);
    connect(m_editor, &StyleSheetPage::sheetEdited, this, [this](const QString &sheet) {
        setLook({ tr("Your own"), sheet }, m_scale);
    });
    connect(m_editor, &StyleSheetPage::scaleChosen, this, &GalleryWindow::setScale);
    connect(m_editor, &StyleSheetPage::fontSizeChosen, this, &GalleryWindow::setFontSize);

    m_source = new SourcePane;
    auto *splitter = new QSplitter;
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(m_stack);
    splitter->addWidget(m_source);
    splitter->setStretchFactor(0, 2);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({ InitialSize.width() - ListWidth - SourceWidth, SourceWidth });

    auto *layout = new QHBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_list);
    layout->addWidget(splitter, 1);
    setCentralWidget(central);
}

void GalleryWindow::showPage(int index)
{
    m_source->showSourceOf(page(index));
    statusBar()->showMessage(page(index)->windowTitle());
    m_stack->setCurrentIndex(index);
}

void GalleryWindow::createMenus()
{
    QMenu *const file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Quit"), this, &QWidget::close, QKeySequence(QStringLiteral("Ctrl+Q")));
    createViewMenu();
    QMenu *const help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&About"), this, &GalleryWindow::about);
}

void GalleryWindow::createViewMenu()
{
    QMenu *const view = menuBar()->addMenu(tr("&View"));
    view->addAction(tr("&Find a page"), m_list, &PageList::startSearch, QKeySequence::Find);
    view->addAction(
        tr("&Next page"), m_list, [this] { m_list->step(1); },
        QKeySequence(QStringLiteral("Ctrl+PgDown")));
    view->addAction(
        tr("&Previous page"), m_list, [this] { m_list->step(-1); },
        QKeySequence(QStringLiteral("Ctrl+PgUp")));
    view->addSeparator();
    QAction *const source = view->addAction(tr("S&ource"));
    source->setCheckable(true);
    source->setChecked(true);
    source->setShortcut(QKeySequence(QStringLiteral("Ctrl+U")));
    connect(source, &QAction::toggled, m_source, &QWidget::setVisible);
    view->addAction(tr("&Copy the source"), m_source, &SourcePane::copy,
                    QKeySequence(QStringLiteral("Ctrl+Shift+C")));
    view->addSeparator();

    QMenu *const theme = view->addMenu(tr("&Theme"));
    m_themeActions = new QActionGroup(this);
    m_themeActions->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (int i = 0; i < m_themes.size(); ++i) {
        QAction *const action =
            theme->addAction(m_themes.at(i).name, this, [this, i] { setTheme(i); });
        action->setCheckable(true);
        m_themeActions->addAction(action);
    }
    QMenu *const scale = view->addMenu(tr("&Scale"));
    m_scaleActions = new QActionGroup(this);
    m_scaleActions->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (const int percent : scales()) {
        QAction *const action =
            scale->addAction(tr("%1 %").arg(percent), this, [this, percent] { setScale(percent); });
        action->setCheckable(true);
        action->setData(percent);
        m_scaleActions->addAction(action);
    }
    scale->addSeparator();
    scale->addAction(
        tr("&Larger"), this, [this] { stepScale(1); }, QKeySequence::ZoomIn);
    scale->addAction(
        tr("&Smaller"), this, [this] { stepScale(-1); }, QKeySequence::ZoomOut);
}

void GalleryWindow::createTitleBarActions()
{
    m_search = new QAction(tr("Search"), this);
    m_search->setToolTip(tr("Find a page"));
    connect(m_search, &QAction::triggered, m_list, &PageList::startSearch);
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
        connect(m_list, &PageList::currentPageChanged, action,
                [action, i](int index) { action->setChecked(index == i); });
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
    connect(m_source, &SourcePane::copied, this, [this](const QString &file) {
        statusBar()->showMessage(tr("%1 is on the clipboard").arg(file));
    });
}

// To the next of the scales in the menu, from one between them too.
void GalleryWindow::stepScale(int steps)
{
    const QList<int> all = scales();
    int next = m_scale;
    for (const int percent : all) {
        if (steps > 0 ? percent > m_scale && next == m_scale : percent < m_scale)
            next = percent;
    }
    setScale(next);
}

void GalleryWindow::applyLook()
{
    const double rate = m_scale / 100.0;
    // The application's sheet is scaled as a whole, the sheets of single widgets by the walk.
    m_theme.apply(rate, m_fontSize);
    ChangeObjectSizeAndFontSize(this, rate, rate);
    // What the program itself has given a size is its own to scale.
    m_list->setFixedWidth(qRound(ListWidth * rate));
    setMinimumSize(LeastSize * rate);
    const QList<QTableView *> tables = findChildren<QTableView *>();
    for (QTableView *table : tables) {
        table->verticalHeader()->setDefaultSectionSize(qRound(RowHeight * rate));
        table->horizontalHeader()->setDefaultSectionSize(qRound(ColumnWidth * rate));
    }
    const QList<KestSwitchButton *> switches = findChildren<KestSwitchButton *>();
    for (KestSwitchButton *button : switches)
        button->setFixedSize(SwitchSize * rate);
    scaleProperties(m_stack, rate);
    const QList<PropertyForm *> forms = findChildren<PropertyForm *>();
    for (PropertyForm *form : forms)
        form->readAll();
    m_overview->setScale(rate);
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
    m_search->setIcon(libraryIcon(isDark(titleBar()) ? "search.png" : "search-light.png"));
    titleBar()->addAction(m_search);

    for (int i = 0; i < m_themes.size(); ++i)
        m_themeActions->actions().at(i)->setChecked(m_themes.at(i).sheet == m_theme.sheet);
    for (QAction *action : m_scaleActions->actions())
        action->setChecked(action->data().toInt() == m_scale);
    m_editor->showLook(m_theme.sheet, m_scale, m_fontSize);
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
