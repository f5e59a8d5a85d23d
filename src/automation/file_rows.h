// The layout that the windows of the log merge and the names consolidation share: a bold heading,
// the column captions "File Name" and "Lines Processed", and one row for each file in hand with its
// caption, its name and its count of lines.
#pragma once

#include "platform/ui.h"

#include <initializer_list>

namespace zandolt {

struct FileRow
{
    Label* caption;
    const char* text;
    Label* file;
    Label* count;
};

void DesignFileRows(Label& heading, const char* headingText, Label& nameColumn, Label& countColumn,
                    std::initializer_list<FileRow> rows);

} // namespace zandolt
