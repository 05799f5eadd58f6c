#pragma once

#include "app/shell/TAboutBox.h"
#include "app/shell/TColorOptions.h"
#include "app/shell/TMainForm.h"
#include "edit/forms/TMaterial.h"
#include "edit/forms/TOKBottomDlg.h"
#include "model/forms/TOKBottomDlg1.h"
#include "model/forms/TframeF.h"

#include <QStringList>

namespace korvane {

/// The main frame and the dialogs that exist for the whole run. The frame is their parent: it is
/// made first and destroyed last.
struct EditorForms {
    /// `paths` are the models to open when the frame is first activated.
    explicit EditorForms(const QStringList& paths) : mainForm(*this, paths) {
        material.setTextureDialog(loadTexture);
    }

    TMainForm mainForm;
    TMaterial material{&mainForm};
    TAboutBox aboutBox{&mainForm};
    TOKBottomDlg loadTexture{&mainForm};
    TOKBottomDlg1 renameFrame{&mainForm};
    TframeF frameOptions{&mainForm};
    TColorOptions colorOptions{&mainForm};
};

} // namespace korvane
