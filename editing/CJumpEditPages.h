#pragma once

#include <string_view>

// What the jump editor's rules, its checks and its pages share: the pages, the fields a failed
// check names, the ranges the checks apply and the spinners offer, and the reading of a typed
// time of day.
struct CJumpEditPages
{
    // The fields a failed check can name, grouped by page.
    enum Field
    {
        FieldNumber,
        FieldDate,
        FieldTime,
        FieldExit,
        FieldOpen,
        FieldEquipment,
        FieldMalfunction,
        FieldKind,
        FieldDelay,
        FieldVMax,
        FieldVAvg,
        FieldWind,
        FieldDirection,
        FieldPlace,
        FieldAircraft,
        FieldType,
        FieldLanding,
        FieldSize,
        FieldPoints,
        FieldTeam,
        FieldNote,
        FieldSigner,
        FieldLicence,
        FieldSignature,
    };
    // The pages in tab order.
    enum Page
    {
        PageDetails,
        PageFallrate,
        PageInfo,
        PageNote,
        PageSignature,
        PageCount
    };

    // The ranges the pages check and their spinners offer.
    static constexpr int kMaxNumber = 99999;
    static constexpr int kSpinnerMaxNumber = 32767;
    static constexpr int kMaxHeight = 20000;
    static constexpr int kMaxDelay = 200;
    static constexpr int kMaxSpeed = 1000;
    static constexpr int kMinWind = 1;
    static constexpr int kMaxWind = 99;
    static constexpr int kMaxDirection = 359;
    static constexpr int kMaxSize = 999;
    static constexpr int kMaxPoints = 99;

    // Reads "H:MM" or "H:MM:SS"; false for anything else. An empty text is no time.
    static bool ParseTime(std::string_view text, int& hour, int& minute, int& second);
    // The page a field lies on.
    static Page PageOf(int field);
};
