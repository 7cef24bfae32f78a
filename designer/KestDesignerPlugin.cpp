// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestDesignerPlugin.h"

#include "KestFormWidget.h"

#include <KestCircleProgressBar.h>
#include <KestComboBox.h>
#include <KestDialog.h>
#include <KestIPAddressEdit.h>
#include <KestNavigationBar.h>
#include <KestStageProgressBar.h>
#include <KestSwitchButton.h>
#include <KestWindow.h>

namespace {

template <class Widget>
QWidget *create(QWidget *parent)
{
    return new Widget(parent);
}

#define KEST_TEXT(text) QT_TRANSLATE_NOOP("KestFormWidget", text)
#define KEST_GEOMETRY(width, height) \
    "<property name=\"geometry\"><rect><x>0</x><y>0</y><width>" #width "</width><height>" #height \
    "</height></rect></property>"
#define KEST_PAGE "<widget class=\"QWidget\" name=\"centralWidget\"/>"
#define KEST_TITLE(text) "<property name=\"windowTitle\"><string>" text "</string></property>"

const KestFormClass Classes[] = {
    { &KestWindow::staticMetaObject, "addFormWidget",
      KEST_TEXT("Main window with a title bar of its own"),
      KEST_TEXT("A main window without the system's frame. Widgets go onto its central widget. It "
                "is a form by itself, of File, New, not for other forms."),
      KEST_GEOMETRY(640, 480) KEST_TITLE("Window") KEST_PAGE, "", create<KestWindow> },
    { &KestDialog::staticMetaObject, "setCentralWidget",
      KEST_TEXT("Dialog with a title bar of its own"),
      KEST_TEXT("A dialog without the system's frame. Widgets go onto its central widget. It is a "
                "form by itself, of File, New, not for other forms."),
      KEST_GEOMETRY(400, 300) KEST_TITLE("Dialog") KEST_PAGE, "", create<KestDialog> },
    { &KestNavigationBar::staticMetaObject, nullptr,
      KEST_TEXT("Bar of actions on the left, in the centre and on the right"),
      KEST_TEXT("A bar of actions in three groups. The program adds the actions."),
      KEST_GEOMETRY(400, 50), "", create<KestNavigationBar> },
    { &KestSwitchButton::staticMetaObject, nullptr, KEST_TEXT("On/off switch"),
      KEST_TEXT("A switch for a setting that takes effect at once. It is checkable, as a button "
                "is."),
      KEST_GEOMETRY(60, 28), "", create<KestSwitchButton> },
    { &KestComboBox::staticMetaObject, nullptr, KEST_TEXT("Combo box that announces its popup"),
      KEST_TEXT("A combo box that emits aboutToShowPopup() before it opens, for a program to fill "
                "it afresh."),
      KEST_GEOMETRY(120, 28), "", create<KestComboBox> },
    { &KestIPAddressEdit::staticMetaObject, nullptr, KEST_TEXT("Input for an IPv4 address"),
      KEST_TEXT("Four numbers from 0 to 255 with fixed dots between them."), KEST_GEOMETRY(200, 28),
      "<stringpropertyspecification name=\"ipAddress\" notr=\"true\" type=\"singleline\"/>",
      create<KestIPAddressEdit> },
    // Without a value it is painted in the colour of the form that it lies on.
    { &KestStageProgressBar::staticMetaObject, nullptr,
      KEST_TEXT("Progress through numbered steps"),
      KEST_TEXT("A row of numbered steps, as far as value of maximum. The captions are in texts, "
                "and drawn with textVisible."),
      KEST_GEOMETRY(320, 40) "<property name=\"value\"><number>50</number></property>",
      "<tooltip name=\"texts\">The captions, one line for each of stageCount steps</tooltip>",
      create<KestStageProgressBar> },
    { &KestCircleProgressBar::staticMetaObject, nullptr, KEST_TEXT("Progress as a ring"),
      KEST_TEXT("A ring that fills clockwise. From 0 to 0 it is busy: it turns."),
      KEST_GEOMETRY(100, 100),
      "<stringpropertyspecification name=\"format\" type=\"singleline\"/>"
      "<tooltip name=\"format\">%p is the percentage, %v the value, %m the number of "
      "steps</tooltip>",
      create<KestCircleProgressBar> },
};

} // namespace

KestDesignerPlugin::KestDesignerPlugin(QObject *parent) : QObject(parent)
{
    for (const KestFormClass &formClass : Classes)
        m_widgets.append(new KestFormWidget(formClass, this));
}

QList<QDesignerCustomWidgetInterface *> KestDesignerPlugin::customWidgets() const
{
    return m_widgets;
}
