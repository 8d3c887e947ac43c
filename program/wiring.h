// Registers the forms: the only place that depends on the modules above the main window.
#pragma once

#include "app/start_up.h"

/// Everything that start-up needs, for a program installed in this folder.
StartUpParts Wire(const QString& folder);
