// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTFORMCONTAINER_H
#define KESTFORMCONTAINER_H

#include <QtCore/QList>
#include <QtDesigner/QDesignerContainerExtension>
#include <QtDesigner/QExtensionFactory>

QT_BEGIN_NAMESPACE
class QDesignerFormEditorInterface;
class QWidget;
QT_END_NAMESPACE

/*!
    \class KestFormContainer
    \brief What a form has in a window: its central widget, which is what widgets are dropped onto,
   and bars.
*/
class KestFormContainer : public QObject, public QDesignerContainerExtension
{
    Q_OBJECT
    Q_INTERFACES(QDesignerContainerExtension)

public:
    /*! Constructs the extension of \a window, whose method \a addPageMethod puts what is added in
       its place, for the Designer of \a core. */
    KestFormContainer(QDesignerFormEditorInterface *core, QWidget *window,
                      const char *addPageMethod, QObject *parent);

    int count() const override;
    QWidget *widget(int index) const override;
    int currentIndex() const override;
    void setCurrentIndex(int index) override;
    void addWidget(QWidget *widget) override;
    void insertWidget(int index, QWidget *widget) override;
    void remove(int index) override;
    bool canAddWidget() const override;
    bool canRemove(int index) const override;

private:
    QDesignerFormEditorInterface *const m_core;
    QWidget *const m_window;
    const char *const m_addPageMethod;

    QWidget *centralWidget() const;
    QList<QWidget *> widgets() const;
};

/*!
    \class KestFormContainerFactory
    \brief Gives the windows of one class their KestFormContainer.
*/
class KestFormContainerFactory : public QExtensionFactory
{
    Q_OBJECT

public:
    KestFormContainerFactory(QDesignerFormEditorInterface *core, const QMetaObject *meta,
                             const char *addPageMethod);

protected:
    QObject *createExtension(QObject *object, const QString &iid, QObject *parent) const override;

private:
    QDesignerFormEditorInterface *const m_core;
    const QMetaObject *const m_meta;
    const char *const m_addPageMethod;
};

#endif // KESTFORMCONTAINER_H
