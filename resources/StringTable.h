#pragma once

#include <string>
#include <string_view>
#include <vector>

// The program's numbered texts (English). Messages are addressed by number and composed with
// plain "%1"/"%2" substitution, so the core builds its own messages without any UI library.
namespace StringTable {

// File and validation errors.
enum MessageId : int
{
    IDS_WRITE_ERROR = 4000,
    IDS_OPEN_FAILED = 4001,
    IDS_SAVE_FAILED = 4002,
    IDS_MAX_LICENSES = 4003,
    IDS_MAX_RATINGS = 4004,
    IDS_MAX_AWARDS = 4005,
    IDS_INVALID_VALUE = 4006,
    IDS_NEED_HARNESS = 4007,
    IDS_NEED_MAIN = 4008,
    IDS_VALUE_RANGE = 4009,
    IDS_OPEN_ABOVE_EXIT = 4010,
    IDS_NEED_TIME = 4012,
    IDS_BAD_EQUIPMENT = 4013,
    IDS_NOT_TERVOLA = 4014,
    IDS_BAD_VERSION = 4015,
    IDS_PARSER_ERROR = 4016,
    IDS_NEED_SIGNER = 4017,
    IDS_NEED_SIGNATURE = 4018,
    IDS_DUPLICATE_NUMBER = 4019,
    IDS_FILE_CHANGED = 4020,
    IDS_ALREADY_OPEN = 4021,
    // Why a flight recording is refused.
    IDS_TRACK_LINE = 4100,
    IDS_TRACK_NOT_A_NUMBER = 4101,
    IDS_TRACK_BAD_TIME = 4102,
    IDS_TRACK_LATITUDE = 4103,
    IDS_TRACK_LONGITUDE = 4104,
    IDS_TRACK_HEIGHT = 4105,
    IDS_TRACK_NORTH_SPEED = 4106,
    IDS_TRACK_EAST_SPEED = 4107,
    IDS_TRACK_VERTICAL_SPEED = 4108,
    IDS_TRACK_NO_COLUMNS = 4109,
    IDS_TRACK_MISSING_COLUMN = 4110,
    IDS_TRACK_SHORT_ROW = 4111,
    IDS_TRACK_TIME_BACKWARDS = 4112,
    IDS_TRACK_NO_FIX = 4113,
    IDS_TRACK_GNSS_BEFORE_COLUMNS = 4114,
    IDS_TRACK_NOT_A_SENTENCE = 4115,
    IDS_TRACK_NO_GNSS_COLUMNS = 4116,
    IDS_TRACK_BINARY = 4117,
    IDS_TRACK_EMPTY = 4118,
    IDS_TRACK_UNREADABLE = 4119,
    IDS_TRACK_TOO_LARGE = 4120,
    IDS_TRACK_NO_FREEFALL = 4121,
    IDS_TRACK_ENDS_IN_FREEFALL = 4122,
    IDS_TRACK_NO_BARO = 4123,
    IDS_TRACK_BARO_SHORT = 4124,
    IDS_TRACK_NO_JUMP = 4125,
    IDS_TRACK_FOREIGN_JUMP = 4126,
    IDS_TRACK_EXIT_YEAR = 4127,
    IDS_TRACK_TOO_DAMAGED = 4128,
    IDS_TRACK_SKIPPED_LINES = 4129,
    IDS_CSV_EMPTY = 4200,
    IDS_CSV_BINARY = 4201,
    IDS_CSV_TOO_LARGE = 4202,
    IDS_CSV_OPEN_QUOTE = 4203,
    IDS_CSV_LONG_CELL = 4204,
    IDS_CSV_CELL_COUNT = 4205,
    IDS_CSV_BAD_NUMBER = 4206,
    IDS_CSV_BAD_DATE = 4207,
    IDS_CSV_BAD_TIME = 4208,
    IDS_CSV_BAD_HEIGHT = 4209,
    IDS_CSV_BAD_FREEFALL = 4210,
    IDS_CSV_BAD_VALUE = 4211,
    IDS_CSV_NUMBER_TAKEN = 4212,
    IDS_CSV_NUMBER_SIGNED = 4213,
    IDS_CSV_NUMBER_TWICE = 4214,
    IDS_CSV_NO_DATE_COLUMN = 4215,
    IDS_CSV_DATES_UNCLEAR = 4216,
    IDS_CSV_DATES_MIXED = 4217,
    IDS_CSV_NO_DATE = 4218,
    IDS_CSV_BAD_FALLRATE = 4219,
    IDS_CARD_IN_LOGBOOK = 4230,
    IDS_CARD_TWICE = 4231,
    IDS_CARD_NONE_TICKED = 4232,
    IDS_CARD_SAME_JUMP = 4233,
    // The printed pages' selection.
    IDS_PRINT_NO_JUMPS = 4301,
    IDS_MEMBERSHIP_EXPIRES = 5005,
    IDS_INSPECTION_DUE = 5006,
    IDS_DELETE_JUMP = 5007,
    IDS_REMOVE_EQUIPMENT = 5008,
    IDS_MEMBERSHIP_EXPIRED = 5009,
    IDS_USER_PROFILE = 6000,
    IDS_MEMBERSHIP = 6001,
    IDS_LICENSES = 6002,
    IDS_RATINGS = 6003,
    IDS_AWARDS = 6004,
    IDS_ALARM = 6008,
    IDS_CUSTOM_FALLRATE = 6009,
    IDS_NUMBER_OF_JUMPS = 6010,
    IDS_FREEFALL_TIME = 6011,
    IDS_FREEFALL_DIST = 6012,
    IDS_CANOPY_DIST = 6013,
    IDS_LAST_JUMP = 6014,
    IDS_JUMP = 6018,
    IDS_DETAILS = 6019,
    IDS_FALLRATE = 6021,
    IDS_STANDARD = 6022,
    IDS_VERTICAL = 6023,
    IDS_CUSTOM = 6024,
    IDS_IMPORT = 6025,
    IDS_MANUAL = 6026,
    IDS_INFO = 6027,
    IDS_NOTE = 6028,
    IDS_SIGNATURE = 6029,
    // The state of a signed jump's seal.
    IDS_SEAL_INTACT = 6100,
    IDS_SEAL_CHANGED = 6101,
    IDS_SEAL_NONE = 6102,
    // A jump's fields as the columns of a table name them (model/JumpFields.h); "%1" is the
    // height unit.
    IDS_FIELD_DATE = 6200,
    IDS_FIELD_TIME = 6201,
    IDS_FIELD_PLACE = 6202,
    IDS_FIELD_AIRCRAFT = 6203,
    IDS_FIELD_TYPE = 6204,
    IDS_FIELD_EXIT = 6205,
    IDS_FIELD_OPEN = 6206,
    IDS_FIELD_FREEFALL = 6207,
    IDS_FIELD_WIND_DIRECTION = 6208,
    IDS_FIELD_WIND_SPEED = 6209,
    IDS_FIELD_RIG = 6210,
    IDS_FIELD_LANDING = 6211,
    IDS_FIELD_TEAM = 6212,
    IDS_FIELD_SIZE = 6213,
    IDS_FIELD_POINTS = 6214,
    IDS_FIELD_MALFUNCTION = 6215,
    IDS_FIELD_SIGNER = 6216,
    IDS_FIELD_NOTE = 6217,
    IDS_FIELD_RECORDING = 6218,
    IDS_FIELD_SEAL = 6219,
};

// The maker's support address, which ends message 4015.
inline constexpr std::string_view kSupportAddress = "support@tervola.example.org";
// The maker's web address, written into each file's "creator".
inline constexpr std::string_view kWebAddress = "https://tervola.example.org";
// The product version written into "creator".
inline constexpr std::string_view kProductVersion = "1.0.0";

// The text of a message id; empty for an unknown id.
std::string_view Text(int id);
// True when the table holds the id.
bool Has(int id);
// Every id of the table, in ascending order.
std::vector<int> Ids();
// The text with every "%1" replaced by arg1 and every "%2" by arg2 (plain substitution).
std::string Format(int id, std::string_view arg1 = {}, std::string_view arg2 = {});
// Plain substitution on any text.
std::string Substitute(std::string_view text, std::string_view arg1, std::string_view arg2 = {});

} // namespace StringTable
