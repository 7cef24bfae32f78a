// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestFormWidget.h"

#include "KestFormContainer.h"

#include <KestStyleSheet.h>
#include <KestTitleBar.h>

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QExtensionManager>
#include <QtGui/QIcon>
#include <QtWidgets/QWidget>

namespace {

// On a form a window is a part of Designer's own, whose pointer goes by what is selected.
void embed(QWidget *window)
{
    window->setParent(window->parentWidget(), Qt::Widget);
    window->setAttribute(Qt::WA_Hover, false);
}

} // namespace

KestFormWidget::KestFormWidget(const KestFormClass &formClass, QObject *parent)
    : QObject(parent), m_class(formClass)
{ }

QString KestFormWidget::name() const
{
    return QString::fromLatin1(m_class.meta->className());
}

QString KestFormWidget::group() const
{
    return QStringLiteral("KestWidgets");
}

QString KestFormWidget::toolTip() const
{
    return tr(m_class.toolTip);
}

QString KestFormWidget::whatsThis() const
{
    return tr(m_class.whatsThis);
}

QString KestFormWidget::includeFile() const
{
    return name() + QStringLiteral(".h");
}

QIcon KestFormWidget::icon() const
{
    return QIcon(QStringLiteral(":/kestdesigner/") + name().toLower() + QStringLiteral(".png"));
}

bool KestFormWidget::isContainer() const
{
    return m_class.addPageMethod;
}

QString KestFormWidget::domXml() const
{
    QString addPageMethod;
    if (m_class.addPageMethod) {
        addPageMethod = QStringLiteral("<addpagemethod>%1</addpagemethod>")
                            .arg(QLatin1String(m_class.addPageMethod));
    }
    QString objectName = name();
    objectName[0] = objectName.at(0).toLower();
    return QStringLiteral("<ui language=\"c++\" displayname=\"%1\">"
                          "<widget class=\"%1\" name=\"%2\">%3</widget>"
                          "<customwidgets><customwidget>"
                          "<class>%1</class><extends>%4</extends>%5"
                          "<propertyspecifications>%6</propertyspecifications>"
                          "</customwidget></customwidgets></ui>")
        .arg(name(), objectName, QLatin1String(m_class.contents),
             QLatin1String(m_class.meta->superClass()->className()), addPageMethod,
             QLatin1String(m_class.propertySpecifications));
}

QWidget *KestFormWidget::createWidget(QWidget *parent)
{
    QWidget *const widget = m_class.create(parent);
    if (!m_isInDesigner || !isContainer())
        return widget;
    // The window's buttons have their glyphs from the application's sheet, and Designer is none of
    // ours.
    if (auto *bar = widget->findChild<KestTitleBar *>(QString(), Qt::FindDirectChildrenOnly))
        bar->setStyleSheet(KestStyleSheet::defaultStyleSheet());
    // A preview has no parent and is a window.
    if (parent)
        embed(widget);
    return widget;
}

bool KestFormWidget::isInitialized() const
{
    return m_isInDesigner;
}

void KestFormWidget::initialize(QDesignerFormEditorInterface *core)
{
    if (m_isInDesigner || !core)
        return;
    m_isInDesigner = true;
    if (!isContainer())
        return;
    core->extensionManager()->registerExtensions(
        new KestFormContainerFactory(core, m_class.meta, m_class.addPageMethod),
        Q_TYPEID(QDesignerContainerExtension));
}
