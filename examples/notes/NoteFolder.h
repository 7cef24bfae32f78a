// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef NOTEFOLDER_H
#define NOTEFOLDER_H

#include <QtCore/QDir>
#include <QtCore/QStringList>

/*! Notes on the disk: a folder with a text file for each of them. */
class NoteFolder
{
public:
    explicit NoteFolder(const QString &path);

    /*! Returns the titles of all notes, sorted. */
    QStringList titles() const;

    QString read(const QString &title) const;
    /*! Returns whether \a text is on the disk now; if not, the note is as it was. */
    bool write(const QString &title, const QString &text) const;
    bool remove(const QString &title) const;

    /*! Returns a title like \a wanted that no note has. */
    QString unusedTitle(const QString &wanted) const;

    /*! Copies all notes into the folder "backup" beside them and returns how many; stops where the
        thread is asked to. What takes as long as the disk does. */
    int backUp() const;

private:
    QString file(const QString &title) const;

    QDir m_folder;
};

#endif // NOTEFOLDER_H
