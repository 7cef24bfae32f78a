// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "GalleryPages.h"

#include "pages/CircleProgressPage.h"
#include "pages/ColorsPage.h"
#include "pages/ComboBoxPage.h"
#include "pages/DialogsPage.h"
#include "pages/IPAddressPage.h"
#include "pages/LoadingPage.h"
#include "pages/MessageBoxPage.h"
#include "pages/StageProgressPage.h"
#include "pages/StandardWidgetsPage.h"
#include "pages/SwitchPage.h"
#include "pages/WindowPage.h"

QList<QWidget *> createGalleryPages()
{
    return {
        new StandardWidgetsPage, new WindowPage,        new DialogsPage,        new MessageBoxPage,
        new LoadingPage,         new StageProgressPage, new CircleProgressPage, new SwitchPage,
        new ComboBoxPage,        new IPAddressPage,     new ColorsPage,
    };
}
