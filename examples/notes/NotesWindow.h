// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef NOTESWINDOW_H
#define NOTESWINDOW_H

#include "NoteFolder.h"

#include <KestWindow.h>

QT_BEGIN_NAMESPACE
class QAction;
class QActionGroup;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QPlainTextEdit;
class QSplitter;
QT_END_NAMESPACE

/*! The program's only window: the titles on the left, the chosen note on the right. */
class NotesWindow : public KestWindow
{
    Q_OBJECT

public:
    /*! Shows the notes in \a folder, as the window was left the last time. */
    explicit NotesWindow(const QString &folder);

    /*! Returns the language that the user has chosen; none is the system's. */
    static QString language();

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void createPages();
    void createActions();
    void createMenus();
    void fillBars();
    void retranslate();
    void restore();

    void newNote();
    bool save();
    void removeNote();
    void backUp();
    void setLanguage(const QString &language);
    void about();

    bool mayLeaveNote();
    void open(const QString &title);
    void chosen();
    void showTitles();
    void showState();
    bool isModified() const;

    NoteFolder m_notes;
    QString m_title; // of the open note; none as long as it was never saved

    QSplitter *m_splitter = nullptr;
    QListWidget *m_list = nullptr;
    QLineEdit *m_titleEdit = nullptr;
    QPlainTextEdit *m_text = nullptr;
    QLineEdit *m_search = nullptr;
    QLabel *m_count = nullptr;

    QMenu *m_fileMenu = nullptr;
    QMenu *m_editMenu = nullptr;
    QMenu *m_viewMenu = nullptr;
    QMenu *m_languageMenu = nullptr;
    QMenu *m_helpMenu = nullptr;

    QAction *m_new = nullptr;
    QAction *m_save = nullptr;
    QAction *m_remove = nullptr;
    QAction *m_backUp = nullptr;
    QAction *m_quit = nullptr;
    QAction *m_undo = nullptr;
    QAction *m_redo = nullptr;
    QAction *m_find = nullptr;
    QAction *m_wrap = nullptr;
    QAction *m_systemLanguage = nullptr;
    QAction *m_about = nullptr;
    QActionGroup *m_languages = nullptr;
};

#endif // NOTESWINDOW_H
