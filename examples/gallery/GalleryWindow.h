// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef GALLERYWINDOW_H
#define GALLERYWINDOW_H

#include "Theme.h"

#include "KestWindow.h"

#include <QtCore/QSize>

class OverviewPage;
class PageList;
class QAction;
class QActionGroup;
class QSettings;
class QSplitter;
class QStackedWidget;
class SourcePane;
class StyleSheetPage;

/*! The gallery's main window, put together as a host would: bars from actions, a page per family
    of widgets in the middle with its source beside it, and the look of all of it to choose. */
class GalleryWindow : public KestWindow
{
    Q_OBJECT

public:
    explicit GalleryWindow(QWidget *parent = nullptr);

    /*! The scales to choose from, in percent. */
    static QList<int> scales();

    int pageCount() const;
    QWidget *page(int index) const;
    void setCurrentPage(int index);

    int themeCount() const { return m_themes.size(); }
    QString themeName(int index) const { return m_themes.at(index).name; }
    void setTheme(int index);
    void setScale(int percent);
    /*! Wears any theme, at any scale. */
    void setLook(const Theme &theme, int percent);
    void setFontSize(double points);

    /*! Goes where the window was when \a settings were saved, or where it fits on the screen. */
    void restorePlace(const QSettings &settings);
    void savePlace(QSettings *settings) const;

private:
    void createPages();
    void createMenus();
    void createViewMenu();
    void createTitleBarActions();
    void createNavigationBar();
    void createStatusBar();
    void showPage(int index);
    void stepScale(int steps);
    void applyLook();
    void about();

    const QList<Theme> m_themes = Theme::all();
    Theme m_theme = m_themes.constFirst();
    int m_scale = 100;
    double m_fontSize = Theme::plainPointSize();
    QSize m_iconPos; // of the window's icon, unscaled
    PageList *m_list = nullptr;
    QStackedWidget *m_stack = nullptr;
    SourcePane *m_source = nullptr;
    OverviewPage *m_overview = nullptr;
    StyleSheetPage *m_editor = nullptr;
    QAction *m_search = nullptr;
    QActionGroup *m_themeActions = nullptr;
    QActionGroup *m_scaleActions = nullptr;
};

#endif // GALLERYWINDOW_H
