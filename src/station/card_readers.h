// Card readers on the station's second serial port: what arrives is gathered until a line end or
// a silence, turned into a card number, and the employee with that badge is identified.
#pragma once

#include <cstdint>
#include <string>

namespace zandolt {

class App;

// The reader port's notification.
void ReaderPortReceived(App& app);
// The tick of the main window's Timer1: the reader has been silent long enough.
void ReaderSilenceTimer(App& app);
// Processes ProxText of the HID, Casi-Rusco and RW-400 readers.
void ReadCardData(App& app);
// Processes ProxText of a general RS232 reader.
void HandleGeneralRS232Reading(App& app);

// Pure steps of the card data, for the readers above.
// Casi-Rusco: each character is a bit (1 from code 248 up), four to a hexadecimal digit.
std::string CasiBitsToHex(const std::string& data);
// RW-400: binary card data to the hexadecimal card text, without its leading marker bit.
std::string Rw400ToHex(std::string data);
// The card number: `skip` bits of the hexadecimal digits skipped, then `use` bits taken.
std::int64_t CardNumber(const std::string& hexDigits, int skip, int use);

} // namespace zandolt
