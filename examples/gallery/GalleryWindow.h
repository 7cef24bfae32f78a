// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef GALLERYWINDOW_H
#define GALLERYWINDOW_H

#include "Theme.h"

#include "KestWindow.h"

#include <QtCore/QSize>

class QAction;
class QActionGroup;
class QListWidget;
class QStackedWidget;

/*! The gallery's main window, put together as a host would: bars from actions, a page per family
    of widgets in the middle, and the theme and scale of all of it to choose. */
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

private:
    void createPages();
    void createMenus();
    void createTitleBarActions();
    void createNavigationBar();
    void createStatusBar();
    void applyLook();
    void about();

    const QList<Theme> m_themes = Theme::all();
    int m_theme = 0;
    int m_scale = 100;
    QSize m_iconPos; // of the window's icon, unscaled
    QListWidget *m_list = nullptr;
    QStackedWidget *m_stack = nullptr;
    QAction *m_search = nullptr;
    QActionGroup *m_themeActions = nullptr;
    QActionGroup *m_scaleActions = nullptr;
};

#endif // GALLERYWINDOW_H
