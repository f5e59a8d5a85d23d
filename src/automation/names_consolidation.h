// The stations' Names.txt files kept in step through the server: consolidation pulls them into the
// server's file, distribution pushes that file back out, and the sort cleans the local file.
#pragma once

namespace zandolt {

class App;

// Shows the consolidation window without blocking; its own timers do the work and close it.
void ShowNamesForm(App& app);

// Copies the server's Names.txt to every reachable station of NetList.txt.
void SendNamesToStations(App& app);

// Sorts the employee file by name after asking, dropping duplicate names and IDs.
void SortNamesFile(App& app);

// The main menu's entries, each behind the administrator's password: the consolidation, waited
// for and followed by a read of the employee file; the distribution after a Yes; the sort followed
// by a read of the employee file.
void GetNamesMenu(App& app);
void SendNamesMenu(App& app);
void SortNamesMenu(App& app);

} // namespace zandolt
