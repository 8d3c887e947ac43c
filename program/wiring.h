// Which forms there are: the one place that knows the rooms above the main window.
#pragma once

#include "app/start_up.h"

/// Everything that start-up needs, for a program that stands in this folder.
StartUpParts Wire(const QString& folder);
