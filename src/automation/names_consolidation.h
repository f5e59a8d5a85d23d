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

} // namespace zandolt
