#include "automation/file_rows.h"

namespace zandolt {

void DesignFileRows(Label& heading, const char* headingText, Label& nameColumn, Label& countColumn,
                    std::initializer_list<FileRow> rows)
{
    heading.setCaption(headingText);
    heading.move(240, 180, 6840, 300);
    heading.setFontSize(9.75);
    heading.setFontBold(true);
    nameColumn.setCaption("File Name");
    nameColumn.move(1560, 660, 3960, 255);
    countColumn.setCaption("Lines Processed");
    countColumn.move(5640, 660, 1440, 255);
    countColumn.setAlignment(1);
    int top = 960;
    for (const FileRow& row : rows) {
        row.caption->setCaption(row.text);
        row.caption->move(240, top + 30, 1260, 285);
        row.file->move(1560, top, 3960, 315);
        row.file->setBorderStyle(1);
        row.count->move(5640, top, 1440, 315);
        row.count->setBorderStyle(1);
        row.count->setAlignment(1);
        top += 400;
    }
}

} // namespace zandolt
