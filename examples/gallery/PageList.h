// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef PAGELIST_H
#define PAGELIST_H

#include <QtCore/QStringList>
#include <QtWidgets/QWidget>

class QLabel;
class QLineEdit;
class QListWidget;

/*! The names of the pages, and a field that leaves those which have what is typed in their name or
    among their words, and shows the first, best by its name. Return and Down lead from the field to
   the names, Escape empties it. */
class PageList : public QWidget
{
    Q_OBJECT

public:
    explicit PageList(QWidget *parent = nullptr);

    void addPage(const QString &name, const QStringList &words);
    int currentPage() const;
    void setCurrentPage(int index);
    /*! Chooses the page with this name. */
    void choose(const QString &name);
    /*! Goes \a pages on, or back, and stays at the ends. */
    void step(int pages);

    /*! Gives the keyboard to the names. */
    void takeFocus();
    /*! Gives it to the field, with what was searched for ready to be typed over. */
    void startSearch();

Q_SIGNALS:
    void currentPageChanged(int index);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void search(const QString &text);

    QList<QStringList> m_words;
    QLineEdit *m_field;
    QListWidget *m_list;
    QLabel *m_nothing;
};

#endif // PAGELIST_H
