#pragma once

#include "core/ask/FileDialogs.h"
#include "core/ask/Prompt.h"
#include "core/project/MorvaneDoc.h"

class QWidget;

namespace tremlo {

/// The command "報告書の出力(PDF)": asks for the file, then computes the stored results anew and makes the
/// report behind a dialog, from a copy of the document. What goes wrong is told, and an older file is then as
/// it was.
void WriteReport(const CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files, QWidget* parent);

}  // namespace tremlo
