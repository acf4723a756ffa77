// A whole computer in memory, for tests and for stations that are led by a script.
#pragma once

#include "platform/platform.h"
#include "stage/memory_files.h"
#include "stage/staged_computer.h"
#include "stage/staged_dialogs.h"
#include "stage/stores.h"

namespace torvane {

struct Stage {
  MemoryStore store;
  StagedClock clock;
  StagedLocale locale;
  MemoryFiles files;
  StagedMessageDialog messageDialog;
  StagedMessageBox messageBox;
  StagedFileDialog fileDialog;
  StagedLauncher launcher;

  // Refers to this stage, which must outlive it.
  Platform AsPlatform() {
    return {store, clock, locale, files, messageDialog, messageBox, fileDialog, launcher};
  }
};

}  // namespace torvane
