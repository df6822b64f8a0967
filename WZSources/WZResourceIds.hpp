// Ids of the library's resources: string list numbers, the strings of the common lists, icons.
#pragma once

namespace WZ {

// String lists of the library's module.
enum ResourceListIds : int {
    CommonStringListId = 301,       // localised common strings
    CommonFixStringListId = 15001,  // fixed, non-localised strings
    PlaceholderResourceId = 9997    // placeholder string list and icon
};

// Strings of list 301, counted from 1.
enum class CommonStringIds : int {
    Ok = 1,
    Cancel = 2,
    Close = 3,
    Search = 4,
    SearchResults = 5,
    Name = 6,
    Type = 7,
    UpOneLevel = 8,
    NoItems = 9,
    NewFolder = 10,
    Untitled = 11,
    ExpandAll = 12,
    CollapseAll = 13,
    AllItems = 14
};

// Strings of list 15001, counted from 1.
enum class CommonFixStringIds : int {
    Or = 1  // "OR": joins alternatives in search texts
};

// Icons. 17, 18 and 20 live in the toolkit's shared module; the others in the library's own.
enum class IconIds : int {
    ClosedFolder = 17,
    OpenFolder = 18,
    UpOneLevel = 19,
    GenericItem = 20,
    ColumnSettings = 21,
    SearchGlass = 22,
    Placeholder = 9997
};

}  // namespace WZ
