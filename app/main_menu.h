// The frame's menus and tool bar as two tables: what stands where, what it opens, and which right it needs.
//
// Always holds: the order of the rows is the order on the screen; a row that is no top menu belongs to the
// last top menu above it.
#pragma once

#include <QStringView>

#include <span>

enum class Opens { Nothing, Child, Modal, Command, Unload };

struct MenuRow {
    QStringView name;
    QStringView caption;  ///< "-" is a separator
    bool top = false;
    Opens opens = Opens::Nothing;
    QStringView target = {};       ///< the form or command by its name in the registry
    int LB = 0;                    ///< the document kind that is set before the form is shown; 0 sets none
    QStringView formCaption = {};  ///< set with LB
};

struct ToolRow {
    QStringView caption;
    QStringView key;
    QStringView right = {};  ///< the top menu that has to be shown; none: whoever presses it
    QStringView item = {};   ///< the menu row that it runs; none: always refused
    QStringView icon = {};
    bool gapBefore = false;
};

std::span<const MenuRow> MenuRows();
std::span<const ToolRow> ToolRows();
