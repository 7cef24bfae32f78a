// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef SOURCEPANE_H
#define SOURCEPANE_H

#include <QtWidgets/QWidget>

class QLabel;
class QPlainTextEdit;

/*! The source of a page, which is embedded when the gallery is built and so is what runs. */
class SourcePane : public QWidget
{
    Q_OBJECT

public:
    explicit SourcePane(QWidget *parent = nullptr);

    /*! The text of the source file of a page, from below its licence. */
    static QString sourceOf(const QWidget *page);

    void showSourceOf(const QWidget *page);

    /*! Puts all of the source on the clipboard. */
    void copy();

Q_SIGNALS:
    /*! Emitted when the source in \a file has been put on the clipboard. */
    void copied(const QString &file);

private:
    QLabel *m_file;
    QPlainTextEdit *m_text;
};

#endif // SOURCEPANE_H
