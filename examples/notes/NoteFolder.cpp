// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "NoteFolder.h"

#include <QtCore/QSaveFile>
#include <QtCore/QThread>

namespace {

const QString Suffix = QStringLiteral(".txt");

} // namespace

NoteFolder::NoteFolder(const QString &path) : m_folder(path)
{
    m_folder.mkpath(QStringLiteral("."));
}

QStringList NoteFolder::titles() const
{
    QStringList titles = m_folder.entryList({ QLatin1Char('*') + Suffix }, QDir::Files,
                                            QDir::Name | QDir::IgnoreCase);
    for (QString &title : titles)
        title.chop(Suffix.size());
    return titles;
}

QString NoteFolder::read(const QString &title) const
{
    QFile note(file(title));
    return note.open(QIODevice::ReadOnly) ? QString::fromUtf8(note.readAll()) : QString();
}

bool NoteFolder::write(const QString &title, const QString &text) const
{
    QSaveFile note(file(title));
    return note.open(QIODevice::WriteOnly) && note.write(text.toUtf8()) >= 0 && note.commit();
}

bool NoteFolder::remove(const QString &title) const
{
    return QFile::remove(file(title));
}

QString NoteFolder::unusedTitle(const QString &wanted) const
{
    QString title = wanted;
    for (int number = 2; QFile::exists(file(title)); ++number)
        title = QStringLiteral("%1 %2").arg(wanted).arg(number);
    return title;
}

int NoteFolder::backUp() const
{
    const QDir backup(m_folder.filePath(QStringLiteral("backup")));
    backup.mkpath(QStringLiteral("."));
    int copied = 0;
    const QStringList all = titles();
    for (const QString &title : all) {
        if (QThread::currentThread()->isInterruptionRequested())
            break;
        const QString copy = backup.filePath(title + Suffix);
        QFile::remove(copy); // QFile::copy() replaces nothing
        if (QFile::copy(file(title), copy))
            ++copied;
    }
    return copied;
}

QString NoteFolder::file(const QString &title) const
{
    return m_folder.filePath(title + Suffix);
}
