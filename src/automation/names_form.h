// The window of the names consolidation: its first tick pulls every station's Names.txt into the
// server's, and the window closes by itself two seconds after "Done.".
#pragma once

#include "automation/names_merge.h"
#include "platform/ui.h"

#include <string>

namespace zandolt {

class App;

class NamesForm : public Form
{
public:
    explicit NamesForm(App& app);

    Label Label1;                         // "Combining names files."
    Label Label2, Label3, Label4, Label5; // "Input file", "Output file", "File Name", "Lines Processed"
    Label FileLabel, LinesLabel, OutFileLabel, OutLinesLabel;
    Label StatusLabel;
    CommandButton OkBut;
    Timer Timer1, Timer2;

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;

private:
    void Timer1_Timer();
    void ReadServerNames(const std::string& path);
    void ReadStationNames(const std::string& path, StationMerge& merge);
    void RemoveDuplicateNames();
    void RemoveDuplicateIds();
    void WriteSortedNames(const std::string& path);
    void status(const std::string& text) { StatusLabel.setCaption(text); }

    App& app_;
    MergedNames merged_;
    // The modification time of the server's file when it was read; empty when it could not be.
    std::string serverFileTime_;
};

} // namespace zandolt
