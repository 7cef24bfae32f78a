// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "GalleryPages.h"

#include "pages/AccessibilityPage.h"
#include "pages/CircleProgressPage.h"
#include "pages/ColorsPage.h"
#include "pages/ComboBoxPage.h"
#include "pages/DialogsPage.h"
#include "pages/IPAddressPage.h"
#include "pages/LoadingPage.h"
#include "pages/LongTaskPage.h"
#include "pages/MessageBoxPage.h"
#include "pages/OverviewPage.h"
#include "pages/StageProgressPage.h"
#include "pages/StandardWidgetsPage.h"
#include "pages/StyleSheetPage.h"
#include "pages/SwitchPage.h"
#include "pages/WindowPage.h"

QList<QWidget *> createGalleryPages()
{
    return {
        new OverviewPage, new StandardWidgetsPage, new WindowPage,
        new DialogsPage,  new MessageBoxPage,      new LoadingPage,
        new LongTaskPage, new StageProgressPage,   new CircleProgressPage,
        new SwitchPage,   new ComboBoxPage,        new IPAddressPage,
        new ColorsPage,   new StyleSheetPage,      new AccessibilityPage,
    };
}
