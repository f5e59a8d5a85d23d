#include "station_windows.h"

#include "app.h"

namespace zandolt {

void ShowTimedError(App& app, const std::string& message, int seconds)
{
    app.stationWindows().ShowTimedError(message, seconds);
}

void FillNameList(App& app)
{
    app.stationWindows().FillNameList();
}

} // namespace zandolt
