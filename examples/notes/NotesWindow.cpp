// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "NotesWindow.h"

#include <KestApplication.h>
#include <KestLoadingDialog.h>
#include <KestMessageBox.h>
#include <KestNavigationBar.h>

#include <QAction>
#include <QActionGroup>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStatusBar>
#include <QThread>
#include <QVBoxLayout>
#include <QWidgetAction>

#include <memory>

namespace {

// Of the settings.
const QString GeometryKey = QStringLiteral("geometry");
const QString SplitterKey = QStringLiteral("splitter");
const QString LanguageKey = QStringLiteral("language");
const QString WrapKey = QStringLiteral("wrapLines");
const QString NoteKey = QStringLiteral("note");

const QSize FirstSize(880, 560);
const int SearchWidth = 200; // pixels
const int Margin = 8; // pixels
const int MessageMs = 5000;

// A title is the name of a file.
QString fileName(const QString &title)
{
    QString name = title.simplified();
    return name.replace(QRegularExpression(QStringLiteral("[/\\\\:*?\"<>|]")), QStringLiteral("-"));
}

} // namespace

NotesWindow::NotesWindow(const QString &folder) : m_notes(folder)
{
    createPages();
    createActions();
    createMenus();
    fillBars();
    retranslate();
    showTitles();
    restore();
}

QString NotesWindow::language()
{
    return QSettings().value(LanguageKey).toString();
}

void NotesWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    KestWindow::changeEvent(event);
}

void NotesWindow::closeEvent(QCloseEvent *event)
{
    if (!mayLeaveNote()) {
        event->ignore();
        return;
    }
    QSettings settings;
    settings.setValue(GeometryKey, saveGeometry());
    settings.setValue(SplitterKey, m_splitter->saveState());
    settings.setValue(WrapKey, m_wrap->isChecked());
    settings.setValue(NoteKey, m_title);
    KestWindow::closeEvent(event);
}

void NotesWindow::createPages()
{
    m_list = new QListWidget;
    m_list->setObjectName(QStringLiteral("titles"));
    m_titleEdit = new QLineEdit;
    m_titleEdit->setObjectName(QStringLiteral("title"));
    m_text = new QPlainTextEdit;
    m_text->setObjectName(QStringLiteral("text"));

    auto *note = new QWidget;
    auto *layout = new QVBoxLayout(note);
    layout->setContentsMargins(Margin, 0, 0, 0);
    layout->addWidget(m_titleEdit);
    layout->addWidget(m_text);

    m_splitter = new QSplitter;
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setContentsMargins(Margin, Margin, Margin, Margin);
    m_splitter->addWidget(m_list);
    m_splitter->addWidget(note);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setSizes({ FirstSize.width() / 4, FirstSize.width() * 3 / 4 });
    setCentralWidget(m_splitter); // the window takes its title and size, so these come later

    // Later, since a question may follow: the list has handled the click by then.
    connect(m_list, &QListWidget::currentItemChanged, this, &NotesWindow::chosen,
            Qt::QueuedConnection);
    connect(m_titleEdit, &QLineEdit::textChanged, this, &NotesWindow::showState);
    connect(m_titleEdit, &QLineEdit::returnPressed, m_text, qOverload<>(&QWidget::setFocus));
    connect(m_text, &QPlainTextEdit::textChanged, this, &NotesWindow::showState);
    connect(m_text->document(), &QTextDocument::modificationChanged, this, &NotesWindow::showState);
}

void NotesWindow::createActions()
{
    const auto add = [this](const QKeySequence &key, auto &&slot) {
        auto *action = new QAction(this);
        action->setShortcut(key);
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    m_new = add(QKeySequence::New, &NotesWindow::newNote);
    m_save = add(QKeySequence::Save, &NotesWindow::save);
    m_remove = add({}, &NotesWindow::removeNote);
    m_backUp = add({}, &NotesWindow::backUp);
    m_quit = add(QKeySequence(QStringLiteral("Ctrl+Q")), &QWidget::close);
    m_undo = add(QKeySequence::Undo, [this] { m_text->undo(); });
    m_redo = add(QKeySequence::Redo, [this] { m_text->redo(); });
    m_find = add(QKeySequence::Find, [this] { m_search->setFocus(Qt::ShortcutFocusReason); });
    m_about = add(QKeySequence::HelpContents, &NotesWindow::about);
    m_undo->setEnabled(false);
    m_redo->setEnabled(false);
    connect(m_text, &QPlainTextEdit::undoAvailable, m_undo, &QAction::setEnabled);
    connect(m_text, &QPlainTextEdit::redoAvailable, m_redo, &QAction::setEnabled);

    m_wrap = new QAction(this);
    m_wrap->setCheckable(true);
    m_wrap->setChecked(true);
    connect(m_wrap, &QAction::toggled, this, [this](bool wrap) {
        m_text->setLineWrapMode(wrap ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
    });

    m_languages = new QActionGroup(this); // of which one is chosen
    m_systemLanguage = m_languages->addAction(QString());
    // A language is called as its speakers call it.
    m_languages->addAction(QStringLiteral("&English"))->setData(QStringLiteral("en"));
    m_languages->addAction(QStringLiteral("&Deutsch"))->setData(QStringLiteral("de"));
    const QList<QAction *> languages = m_languages->actions();
    for (QAction *action : languages) {
        action->setCheckable(true);
        action->setChecked(action->data().toString() == language());
    }
    connect(m_languages, &QActionGroup::triggered, this,
            [this](const QAction *action) { setLanguage(action->data().toString()); });
}

void NotesWindow::createMenus()
{
    m_fileMenu = menuBar()->addMenu(QString()); // in the title bar
    m_fileMenu->addActions({ m_new, m_save, m_remove });
    m_fileMenu->addSeparator();
    m_fileMenu->addAction(m_backUp);
    m_fileMenu->addSeparator();
    m_fileMenu->addAction(m_quit);
    m_editMenu = menuBar()->addMenu(QString());
    m_editMenu->addActions({ m_undo, m_redo });
    m_editMenu->addSeparator();
    m_editMenu->addAction(m_find);
    m_viewMenu = menuBar()->addMenu(QString());
    m_viewMenu->addAction(m_wrap);
    m_languageMenu = m_viewMenu->addMenu(QString());
    m_languageMenu->addActions(m_languages->actions());
    m_helpMenu = menuBar()->addMenu(QString());
    m_helpMenu->addAction(m_about);
}

void NotesWindow::fillBars()
{
    KestNavigationBar *const bar = navigationBar();
    bar->addAction(m_new, KestNavigationBar::Left);
    bar->addAction(m_save, KestNavigationBar::Left);
    bar->addAction(m_remove, KestNavigationBar::Left);
    bar->addAction(m_backUp, KestNavigationBar::Left);

    m_search = new QLineEdit;
    m_search->setObjectName(QStringLiteral("search"));
    m_search->setFixedWidth(SearchWidth);
    m_search->setClearButtonEnabled(true);
    auto *room = new QWidget; // between it and the window's edge
    auto *layout = new QHBoxLayout(room);
    layout->setContentsMargins(0, 0, Margin, 0);
    layout->addWidget(m_search);
    auto *search = new QWidgetAction(this); // any widget can stand on a bar
    search->setDefaultWidget(room);
    bar->addAction(search, KestNavigationBar::Right);
    connect(m_search, &QLineEdit::textChanged, this, &NotesWindow::showTitles);

    m_count = new QLabel;
    statusBar()->addPermanentWidget(m_count);
}

// All texts, since the language may change while the program runs.
void NotesWindow::retranslate()
{
    m_fileMenu->setTitle(tr("&File"));
    m_editMenu->setTitle(tr("&Edit"));
    m_viewMenu->setTitle(tr("&View"));
    m_languageMenu->setTitle(tr("&Language"));
    m_helpMenu->setTitle(tr("&Help"));

    const auto set = [](QAction *action, const QString &text, const QString &tip) {
        action->setText(text);
        action->setStatusTip(tip);
    };
    set(m_new, tr("&New"), tr("Begin a new note"));
    set(m_save, tr("&Save"), tr("Save the note"));
    set(m_remove, tr("&Delete"), tr("Delete the note"));
    set(m_backUp, tr("&Back up"), tr("Copy all notes into the folder \"backup\""));
    set(m_quit, tr("&Quit"), tr("Close the window"));
    set(m_undo, tr("&Undo"), tr("Take the last change back"));
    set(m_redo, tr("&Redo"), tr("Make the change again"));
    set(m_find, tr("&Find"), tr("Show the notes with a word in the title"));
    set(m_wrap, tr("&Wrap lines"), tr("Break lines at the edge of the window"));
    set(m_systemLanguage, tr("The &system's"), tr("The language of the system"));
    set(m_about, tr("&About Notes"), tr("Tell what this program is"));

    m_titleEdit->setPlaceholderText(tr("Title"));
    m_titleEdit->setAccessibleName(tr("Title of the note"));
    m_text->setPlaceholderText(tr("Write something"));
    m_text->setAccessibleName(tr("Text of the note"));
    m_list->setAccessibleName(tr("Notes"));
    m_search->setPlaceholderText(tr("Search titles"));
    m_search->setAccessibleName(m_search->placeholderText());
    showState();
}

// What closeEvent() has left. The sizes are for the first time.
void NotesWindow::restore()
{
    resize(FirstSize);
    const QSettings settings;
    restoreGeometry(settings.value(GeometryKey).toByteArray());
    m_splitter->restoreState(settings.value(SplitterKey).toByteArray());
    m_wrap->setChecked(settings.value(WrapKey, true).toBool());
    const QString title = settings.value(NoteKey).toString();
    const QStringList titles = m_notes.titles();
    open(titles.contains(title) ? title : titles.value(0));
}

void NotesWindow::newNote()
{
    if (!mayLeaveNote())
        return;
    open(QString());
    m_titleEdit->setFocus();
}

// Returns whether all is on the disk.
bool NotesWindow::save()
{
    const QString wanted = fileName(m_titleEdit->text());
    const bool isNew = wanted != m_title || wanted.isEmpty();
    const QString title =
        isNew ? m_notes.unusedTitle(wanted.isEmpty() ? tr("Note") : wanted) : m_title;
    if (!m_notes.write(title, m_text->toPlainText())) {
        KestMessageBox::critical(this, tr("Save"), tr("The note could not be saved."));
        return false;
    }
    if (isNew && !m_title.isEmpty())
        m_notes.remove(m_title); // it was renamed
    m_title = title;
    m_titleEdit->setText(title);
    m_text->document()->setModified(false);
    showTitles();
    showState();
    statusBar()->showMessage(tr("Saved"), MessageMs);
    return true;
}

void NotesWindow::removeNote()
{
    const auto answer =
        KestMessageBox::question(this, tr("Delete"), tr("Delete \"%1\" for ever?").arg(m_title),
                                 KestMessageBox::Yes | KestMessageBox::No, KestMessageBox::No);
    if (answer != KestMessageBox::Yes)
        return;
    m_notes.remove(m_title);
    open(m_notes.titles().value(0));
    showTitles();
}

// In a thread, with the window covered until it is done or the user presses Escape.
void NotesWindow::backUp()
{
    int copied = 0;
    const std::unique_ptr<QThread> thread(
        QThread::create([&copied, notes = m_notes] { copied = notes.backUp(); }));
    KestLoadingDialog overlay(this);
    overlay.setCancelEnable(true);
    connect(thread.get(), &QThread::finished, &overlay, &KestLoadingDialog::done);
    thread->start();
    overlay.exec();
    thread->requestInterruption(); // where it was cancelled; too late otherwise
    thread->wait();
    statusBar()->showMessage(tr("Notes backed up: %1").arg(copied), MessageMs);
}

void NotesWindow::setLanguage(const QString &language)
{
    QSettings().setValue(LanguageKey, language);
    // Everything hears of it by QEvent::LanguageChange.
    if (auto *app = qobject_cast<KestApplication *>(QCoreApplication::instance()))
        app->loadTranslator(language);
}

void NotesWindow::about()
{
    KestMessageBox::information(
        this, tr("About Notes"),
        tr("<b>Notes</b><p>A small program made with KestWidgets, to copy from.</p>"));
}

// Asks where something is not saved; returns false if the user wants to stay.
bool NotesWindow::mayLeaveNote()
{
    if (!isModified())
        return true;
    KestMessageBox box(KestMessageBox::Question, tr("Unsaved changes"),
                       tr("Save the changes of this note?"),
                       KestMessageBox::Save | KestMessageBox::Cancel, this);
    box.setDefaultButton(KestMessageBox::Save);
    // Of itself this button leaves the box open.
    const QPushButton *const discard = box.addButton(KestMessageBox::Discard);
    connect(discard, &QPushButton::clicked, &box, &QDialog::accept);
    if (box.exec() != QDialog::Accepted)
        return false;
    return box.clickedButton() == discard || save();
}

// No title stands for a new note.
void NotesWindow::open(const QString &title)
{
    m_title = title;
    m_titleEdit->setText(title);
    m_text->setPlainText(title.isEmpty() ? QString() : m_notes.read(title));
    showTitles();
    showState();
}

void NotesWindow::chosen()
{
    const QListWidgetItem *const item = m_list->currentItem();
    if (!item || item->text() == m_title)
        return;
    const QString title = item->text(); // saving fills the list anew
    if (mayLeaveNote())
        open(title);
    else
        showTitles();
}

void NotesWindow::showTitles()
{
    const QSignalBlocker blocker(m_list); // nobody has chosen anything
    m_list->clear();
    const QStringList titles = m_notes.titles();
    for (const QString &title : titles) {
        if (!title.contains(m_search->text(), Qt::CaseInsensitive))
            continue;
        auto *item = new QListWidgetItem(title, m_list);
        if (title == m_title)
            m_list->setCurrentItem(item);
    }
}

void NotesWindow::showState()
{
    const QString title = m_titleEdit->text();
    setWindowTitle(tr("%1[*] - Notes").arg(title.isEmpty() ? tr("New note") : title));
    setWindowModified(isModified());
    m_save->setEnabled(isModified());
    m_remove->setEnabled(!m_title.isEmpty());
    const QString text = m_text->toPlainText().simplified();
    const int words = text.isEmpty() ? 0 : int(text.count(QLatin1Char(' '))) + 1;
    m_count->setText(tr("Words: %1").arg(words));
}

bool NotesWindow::isModified() const
{
    return m_text->document()->isModified() || m_titleEdit->text() != m_title;
}
