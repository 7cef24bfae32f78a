// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestAccessibleParts.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QAccessibleWidget>
#include <QtWidgets/QWidget>

namespace {

// By name, since bars know of no windows and dialogs.
struct Kind
{
    const char *className;
    QAccessible::Role role;
    bool busy = false;
    const char *name = nullptr; // where it can have the focus, but has no text
};

const Kind Kinds[] = {
    { "KestWindow", QAccessible::Window },
    { "KestMessageBox", QAccessible::AlertMessage },
    // Qt tells Linux that what it calls title bars are texts.
    { "KestTitleBar", QAccessible::Pane, false,
      //: What a screen reader calls the title bar
      QT_TRANSLATE_NOOP("KestTitleBar", "Title bar") },
    { "KestNavigationBar", QAccessible::ToolBar },
    { "KestSeparator", QAccessible::Separator },
    { "KestLoadingDialog", QAccessible::Dialog, true,
      //: What a screen reader says when the overlay covers a busy window
      QT_TRANSLATE_NOOP("KestLoadingDialog", "Please wait") },
};

class Part : public QAccessibleWidget
{
public:
    Part(QWidget *widget, const Kind &kind) : QAccessibleWidget(widget, kind.role), m_kind(kind) { }

    // A name that the host gave comes first.
    QString text(QAccessible::Text what) const override
    {
        const QString text = QAccessibleWidget::text(what);
        const bool isNameless = what == QAccessible::Name && text.isEmpty() && m_kind.name;
        return isNameless ? QCoreApplication::translate(m_kind.className, m_kind.name) : text;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.busy = m_kind.busy;
        return state;
    }

private:
    const Kind &m_kind;
};

// Asked for every class in an object's ancestry in turn: a host's subclass is found by its base.
QAccessibleInterface *createPartInterface(const QString &className, QObject *object)
{
    for (const Kind &kind : Kinds) {
        if (className == QLatin1String(kind.className))
            return new Part(static_cast<QWidget *>(object), kind);
    }
    return nullptr;
}

} // namespace

void KestAccessibleParts::install()
{
    // Qt takes each once, and forgets them with the application: a later one needs them anew.
    QAccessible::installFactory(createPartInterface);
}
