// The barometer of a FlySight 2: its SENSOR.CSV stamps readings with the device's own clock
// (seconds since power-up); "$TIME" rows pair that clock with GPS time of week, which places
// the readings in UTC.
#include "formats/CFlySightReader.h"

#include "formats/CCsvColumns.h"
#include "resources/StringTable.h"
#include "tracks/TrackText.h"

#include <cmath>
#include <cstdio>
#include <utility>

namespace {

// A pressure as a whole number of pascals, cut towards zero; a file may hold any number, even one
// no integer type holds, so the text is made from the double itself.
std::string WholePascals(double pressure)
{
    char text[400];
    std::snprintf(text, sizeof text, "%.0f", std::trunc(pressure));
    return text;
}

enum BaroColumn
{
    BaroTime,
    BaroPressure,
    BaroColumnCount
};
enum TimeColumn
{
    TimeTime,
    TimeTow,
    TimeWeek,
    TimeColumnCount
};

constexpr std::string_view kBaroNames[BaroColumnCount] = {"time", "pressure"};
constexpr std::string_view kTimeNames[TimeColumnCount] = {"time", "tow", "week"};

// 1980-01-06T00:00:00Z, the start of GPS week 0, in seconds since 1970.
constexpr double kGpsEpoch = 315964800.0;
constexpr double kSecondsPerWeek = 604800.0;
// GPS time runs ahead of UTC by the leap seconds inserted since 1980: 18 since 2017-01-01, and
// none announced since.
constexpr double kGpsLeapSeconds = 18.0;
// Pressures beyond these (Pa) are not air a skydiver breathes but a damaged row.
constexpr double kLowestPressure = 5000.0;
constexpr double kHighestPressure = 120000.0;
// A device clock is off by some parts per million; a fitted rate outside this is a bad pairing.
constexpr double kClockRateTolerance = 0.001;

// Standard atmosphere: pressure altitude in metres of a pressure in Pa.
double PressureAltitude(double pascal)
{
    return 44330.77 * (1.0 - std::pow(pascal / 101325.0, 0.190263));
}

bool Fail(std::string& message, int line, std::string_view reason)
{
    message = LineMessage(line, reason);
    return false;
}

// Reads the wanted numbers of a row; false with the reason for a row too short or a value that
// is not a number.
bool ReadNumbers(const CCsvColumns& columns, std::string_view row, const std::string_view* names, std::size_t count,
                 double* numbers, int line, std::string& message)
{
    std::string_view values[CCsvColumns::kMaxWanted];
    const std::size_t fields = columns.ReadRow(row, 1, values);
    if (fields < columns.FieldsNeeded())
        return Fail(message, line,
                    StringTable::Format(StringTable::IDS_TRACK_SHORT_ROW, std::to_string(fields),
                                        std::to_string(columns.FieldsNeeded())));
    for (std::size_t i = 0; i < count; ++i) {
        if (!ParseNumber(values[i], numbers[i]))
            return Fail(message, line,
                        StringTable::Format(StringTable::IDS_TRACK_NOT_A_NUMBER, names[i], QuoteField(values[i])));
    }
    return true;
}

// Takes a "$COL" line for a sentence; false with the reason when a wanted column is missing.
bool ReadColumns(CCsvColumns& columns, std::string_view line, const std::string_view* names, std::size_t count,
                 int number, std::string& message)
{
    columns.ReadHeader(line, 2);
    for (std::size_t i = 0; i < count; ++i) {
        if (!columns.Has(i))
            return Fail(message, number, "the column \"" + std::string(names[i]) + "\" is missing.");
    }
    return true;
}

} // namespace

bool CFlySightReader::ReadSensorText(std::string_view text, std::vector<CBaroReading>& baro, std::string& message)
{
    text = StripTextPadding(text);
    int binaryLine = 0;
    if (HasBinaryByte(text, 64 * 1024, binaryLine))
        return Fail(message, binaryLine, "the sensor file holds binary data, not text.");

    CCsvColumns baroColumns(kBaroNames, BaroColumnCount);
    CCsvColumns timeColumns(kTimeNames, TimeColumnCount);
    // Readings stamped with the device clock, and pairs of device clock and UTC.
    std::vector<CBaroReading> readings;
    readings.reserve(text.size() / 40);
    std::vector<std::pair<double, double>> marks;
    CTextLines lines(text);
    CTextLine line;
    while (lines.Next(line)) {
        const std::string_view row = TrimField(line.text);
        const bool isBaro = row.substr(0, 6) == "$BARO,";
        const bool isTime = row.substr(0, 6) == "$TIME,";
        if ((isBaro || isTime) && !line.terminated)
            break;
        if (row.substr(0, 10) == "$COL,BARO,") {
            if (!ReadColumns(baroColumns, row, kBaroNames, BaroColumnCount, line.number, message))
                return false;
        } else if (row.substr(0, 10) == "$COL,TIME,") {
            if (!ReadColumns(timeColumns, row, kTimeNames, TimeColumnCount, line.number, message))
                return false;
        } else if (isBaro) {
            if (!baroColumns.HasHeader())
                return Fail(message, line.number, "a $BARO row comes before the $COL,BARO line naming its columns.");
            double numbers[BaroColumnCount];
            if (!ReadNumbers(baroColumns, row, kBaroNames, BaroColumnCount, numbers, line.number, message))
                return false;
            if (numbers[BaroPressure] < kLowestPressure || numbers[BaroPressure] > kHighestPressure)
                return Fail(message, line.number,
                            "the pressure " + WholePascals(numbers[BaroPressure]) +
                                " Pa is outside 5000 to 120000 Pa.");
            if (!readings.empty() && numbers[BaroTime] < readings.back().time)
                return Fail(message, line.number, "the time goes backwards.");
            CBaroReading reading;
            reading.time = numbers[BaroTime];
            reading.pressure = numbers[BaroPressure];
            reading.altitude = PressureAltitude(reading.pressure);
            readings.push_back(reading);
        } else if (isTime) {
            if (!timeColumns.HasHeader())
                return Fail(message, line.number, "a $TIME row comes before the $COL,TIME line naming its columns.");
            double numbers[TimeColumnCount];
            if (!ReadNumbers(timeColumns, row, kTimeNames, TimeColumnCount, numbers, line.number, message))
                return false;
            const double utc = kGpsEpoch + numbers[TimeWeek] * kSecondsPerWeek + numbers[TimeTow] - kGpsLeapSeconds;
            marks.emplace_back(numbers[TimeTime], utc);
        }
    }
    if (readings.empty())
        return Fail(message, 0, "the sensor file holds no barometer readings.");
    if (marks.empty())
        return Fail(message, 0, "the sensor file has no $TIME rows to place its readings in time.");

    // UTC = mean UTC + rate × (device time − mean device time), fitted by least squares around
    // the means so that the large UTC values lose no precision. One mark alone gives rate 1.
    double meanDevice = 0.0, meanUtc = 0.0;
    for (const auto& [device, utc] : marks) {
        meanDevice += device;
        meanUtc += utc - marks.front().second;
    }
    meanDevice /= static_cast<double>(marks.size());
    meanUtc = meanUtc / static_cast<double>(marks.size()) + marks.front().second;
    double spread = 0.0, covariance = 0.0;
    for (const auto& [device, utc] : marks) {
        spread += (device - meanDevice) * (device - meanDevice);
        covariance += (device - meanDevice) * (utc - meanUtc);
    }
    const double rate = spread > 1e-6 ? covariance / spread : 1.0;
    if (std::fabs(rate - 1.0) > kClockRateTolerance)
        return Fail(message, 0, "the $TIME rows of the sensor file contradict each other.");
    for (CBaroReading& reading : readings)
        reading.time = meanUtc + rate * (reading.time - meanDevice);
    baro = std::move(readings);
    message.clear();
    return true;
}
