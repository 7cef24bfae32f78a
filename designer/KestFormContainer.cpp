// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestFormContainer.h"

#include <KestDialog.h>
#include <KestNavigationBar.h>
#include <KestWindow.h>

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerMetaDataBaseInterface>
#include <QtDesigner/QExtensionManager>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStatusBar>

namespace {

bool isBar(QWidget *widget)
{
    return qobject_cast<QMenuBar *>(widget) || qobject_cast<QStatusBar *>(widget)
        || qobject_cast<KestNavigationBar *>(widget);
}

} // namespace

KestFormContainer::KestFormContainer(QDesignerFormEditorInterface *core, QWidget *window,
                                     const char *addPageMethod, QObject *parent)
    : QObject(parent), m_core(core), m_window(window), m_addPageMethod(addPageMethod)
{ }

int KestFormContainer::count() const
{
    return widgets().size();
}

QWidget *KestFormContainer::widget(int index) const
{
    return widgets().value(index);
}

int KestFormContainer::currentIndex() const
{
    return centralWidget() ? 0 : -1;
}

void KestFormContainer::setCurrentIndex(int)
{ }

void KestFormContainer::addWidget(QWidget *widget)
{
    QMetaObject::invokeMethod(m_window, m_addPageMethod,
                              Q_ARG(QWidget *, widget)); // clazy:exclude=connect-not-normalized
}

void KestFormContainer::insertWidget(int, QWidget *widget)
{
    addWidget(widget);
}

// Nothing is taken out, since the window would delete it, and Designer's undo goes back to it.
void KestFormContainer::remove(int)
{ }

bool KestFormContainer::canAddWidget() const
{
    return !centralWidget();
}

bool KestFormContainer::canRemove(int) const
{
    return false;
}

// The empty widget that a window begins with is none of the form's.
QWidget *KestFormContainer::centralWidget() const
{
    QWidget *central = nullptr;
    if (const auto *window = qobject_cast<KestWindow *>(m_window))
        central = window->centralWidget();
    else if (const auto *dialog = qobject_cast<KestDialog *>(m_window))
        central = dialog->centralWidget();
    return m_core->metaDataBase()->item(central) ? central : nullptr;
}

// Asked for anew each time: a form that is read calls the window, not this.
QList<QWidget *> KestFormContainer::widgets() const
{
    QList<QWidget *> found;
    QWidget *const central = centralWidget();
    if (central)
        found.append(central);
    const auto parts = m_window->findChildren<QWidget *>();
    for (QWidget *part : parts) {
        if (isBar(part) && m_core->metaDataBase()->item(part)
            && !(central && central->isAncestorOf(part))) {
            found.append(part);
        }
    }
    return found;
}

KestFormContainerFactory::KestFormContainerFactory(QDesignerFormEditorInterface *core,
                                                   const QMetaObject *meta,
                                                   const char *addPageMethod)
    : QExtensionFactory(core->extensionManager()),
      m_core(core),
      m_meta(meta),
      m_addPageMethod(addPageMethod)
{ }

QObject *KestFormContainerFactory::createExtension(QObject *object, const QString &iid,
                                                   QObject *parent) const
{
    if (iid != Q_TYPEID(QDesignerContainerExtension) || !m_meta->cast(object))
        return nullptr;
    return new KestFormContainer(m_core, static_cast<QWidget *>(object), m_addPageMethod, parent);
}
