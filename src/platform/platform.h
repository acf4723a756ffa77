// Everything of the computer that a station needs, handed to it from outside.
#pragma once

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/launcher.h"
#include "platform/locale.h"
#include "platform/settings_store.h"

namespace torvane {

struct Platform {
  SettingsStore& store;
  Clock& clock;
  Locale& locale;
  Files& files;
  MessageDialog& messageDialog;
  MessageBox& messageBox;
  FileDialog& fileDialog;
  Launcher& launcher;
};

}  // namespace torvane
