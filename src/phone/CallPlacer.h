#pragma once
// PlaceCall: dials a number for the board. A service code (the number ends in "#") goes only to
// the phone's call-policy window; any other number goes to the phone library's "PhoneMakeCall"
// after the phone application is made sure to run. Runs on the UI thread and blocks it: up to
// about 2 s waiting for the phone application, then the library call or the window's answer.

/// Places a call to number, exactly as stored (no normalisation here), showing calledParty (may
/// be null) while it is placed. Returns 0 for an empty or null number and for a service code
/// handed to the call-policy window; the library call's own result when a call was placed; -1
/// when nothing could be done (no phone library, no "PhoneMakeCall" in it, no call-policy
/// window for a service code). Win32 layer.
int PlaceCall(const char16_t* number, const char16_t* calledParty);
