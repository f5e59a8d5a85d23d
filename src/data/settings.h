// Every process-wide setting of a station, the fixed values that ReadIniFile sets, and the paths
// built from the directories. The names are those of the settings file's lines.
#pragma once

#include "data/types.h"
#include "platform/text_encoding.h"

#include <string>

namespace zandolt {

struct Settings
{
    // Directories and paths. AppDir and the four directory settings end in "/".
    std::string AppDir;
    std::string IniPath, GenReportsPath, HelpAutoGenPath, HelpVacationPath, HelpPath, NetworkHelpPath, ZebraPath,
        ManualPathQev, ManualPathRx;
    std::string LogPath, NamesPathFull, ReportTxtPath, ReportCsvPath, ExceptTxtPath, ExceptCsvPath, CertifTxtPath,
        CertifCsvPath, AttendTxtPath, AttendCsvPath, VacationTxtPath, VacationCsvPath, DailyTxtPath, DailyCsvPath,
        IndivTxtPath, IndivCsvPath;

    // Fixed values, set again by every ReadIniFile.
    std::string VersionText;
    int16 BrandIndex = 0;
    std::string MainTitleText;
    std::string LogSortDefaults;

    // The lines of ZANDOLT.INI, in their order.
    int16 ComboComport = 0;                // 2
    float PrinterFontSize = 0;             // 3
    std::string PrinterFontName;           // 4
    std::string CompanyName;               // 5
    int16 Simulation = 0;                  // 6
    std::string AdminPassword;             // 7
    int16 BarCodeFlag = 0;                 // 8
    int16 NoMonitorFlag = 0;               // 9
    int16 DontShowNamesFlag = 0;           // 10
    int16 UseBadgeToIdentifyFlag = 0;      // 11
    std::string IgnoreWorkgroup;           // 12
    int16 UseLastChars = 0;                // 13
    int16 SkipChars = 0;                   // 14
    int16 AddUnknownFlag = 0;              // 15
    std::string DefaultWorkGroup;          // 16
    float DefaultWristMin = 0;             // 17
    float DefaultFootMin = 0;              // 18
    float DefaultWristMax = 0;             // 19
    float DefaultFootMax = 0;              // 20
    int16 DefaultWristRequired = 0;        // 21
    int16 DefaultFootRequired = 0;         // 22
    int16 CertWarnAdvanceDays = 0;         // 23
    int16 CertWarnIntervalDays = 0;        // 24
    int16 CertAccessMode = 0;              // 25
    std::string CertAccessPassword;        // 26
    int16 ProximityComport = 0;            // 27
    int16 SkipProxBits = 0;                // 28
    int16 UseProxMiddleBits = 0;           // 29
    int16 TagType = 0;                     // 30
    int16 ShowNonRequiredStrap = 0;        // 31
    int16 ShowLastPerson = 0;              // 32
    std::string VacationPassword;          // 33
    int16 AllowEmployeeVacationChange = 0; // 34
    int16 NoCardNumbers = 0;               // 35
    int16 MinutesToUsePassword = 0;        // 36
    std::string AltViewerPath;             // 37
    int16 SecondsToRetest = 0;             // 38
    int16 AskPasswordBeforeTest = 0;       // 39
    std::string WelcomeMessage;            // 40
    std::string ScanBadgeMessage;          // 41
    std::string UnknownIdMessage;          // 42
    int16 EmployeeSelectionType = 0;       // 43
    int16 AutoStartEmailServer = 0;        // 44
    int16 EmailAttachments = 0;            // 45
    std::string NamesDir;                  // 46
    std::string LogDir;                    // 47
    std::string ReportTxtDir;              // 48
    std::string ReportCsvDir;              // 49
    int16 AllowOfflineTesting = 0;         // 50

    // The encoding of ZANDOLT.INI as last read; typed settings are stored in it.
    TextEncoding IniEncoding = TextEncoding::Utf8;

    // Derived from EmployeeSelectionType.
    int16 AcceptIdFlag = 0;
    int16 AcceptNameFlag = 0;
};

} // namespace zandolt
