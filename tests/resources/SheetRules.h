// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef SHEETRULES_H
#define SHEETRULES_H

#include <QtCore/QList>
#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QStringList>

/*! A rule of a style sheet. */
struct Rule
{
    QStringList selectors;
    QMap<QString, QString> declarations;
};

/*! The rules of a style sheet in their order, without its comments. */
QList<Rule> rulesOf(const QString &sheet);

#endif // SHEETRULES_H
