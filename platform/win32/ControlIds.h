#pragma once

namespace quorvel {

/// The identifiers of the program's windows and controls. Menu entries have
/// firstMenuCommand + their place in menuItems().
namespace control_id {

inline constexpr const wchar_t* mainWindowClass = L"frmQRV";

/// The icon's number in the resource script.
inline constexpr int applicationIcon = 1;

inline constexpr int vsbS = 101;
inline constexpr int vsbA = 102;
inline constexpr int hsbA = 103;
inline constexpr int txtS = 104;
inline constexpr int txtSN = 105;
inline constexpr int txtA = 106;
inline constexpr int txtAV = 107;
inline constexpr int txtEnter = 108;
inline constexpr int lblStudent = 109;
inline constexpr int lblSN = 110;
inline constexpr int lblAN = 111;
inline constexpr int lblA1 = 112;
inline constexpr int lblA2 = 113;
inline constexpr int lblAV = 114;
inline constexpr int lblClassAvg = 115;
inline constexpr int lblAvgScore = 116;
inline constexpr int Label1 = 117;

/// The prompt box: a dialog whose buttons are IDOK and IDCANCEL.
inline constexpr int promptQuestion = 201;
inline constexpr int promptAnswer = 202;

/// The password windows; cmdPW is the default button.
inline constexpr int txtPW = 211;
inline constexpr int cmdPW = 1;

inline constexpr int firstMenuCommand = 1000;

}  // namespace control_id

}  // namespace quorvel
