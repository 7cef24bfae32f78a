// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTFORMWIDGET_H
#define KESTFORMWIDGET_H

#include <QtCore/QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

/*!
    What Qt Designer has to know of one class.
*/
struct KestFormClass
{
    const QMetaObject *meta;
    // Where uic's code and QUiLoader put what is in a widget of the class; null of what holds
    // nothing.
    const char *addPageMethod;
    const char *toolTip;
    const char *whatsThis;
    // What a new widget is given, and what there is to say of its properties, in Designer's XML.
    const char *contents;
    const char *propertySpecifications;
    QWidget *(*create)(QWidget *parent);
};

/*!
    \class KestFormWidget
    \brief One class of the library in Qt Designer's widget box, and on the forms that QUiLoader
   loads.
*/
class KestFormWidget : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit KestFormWidget(const KestFormClass &formClass, QObject *parent = nullptr);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    QString domXml() const override;
    QWidget *createWidget(QWidget *parent) override;
    bool isInitialized() const override;
    /*! Called by Qt Designer only, once: programs that load forms have no \a core. */
    void initialize(QDesignerFormEditorInterface *core) override;

private:
    const KestFormClass &m_class;
    bool m_isInDesigner = false;
};

#endif // KESTFORMWIDGET_H
