#pragma once

#include <string_view>

class ISettingsStore;

// The user's unit preferences (unit system, speed display, glide display) and the conversions
// between stored units (metres, metres per second) and what the screens show.
class CUnitSettings
{
public:
    enum Units
    {
        Imperial = 0,
        Metric = 1
    };
    enum SpeedDisplay
    {
        PerSecond = 0,
        PerHour = 1
    };
    enum GlideDisplay
    {
        Ratio = 0,
        Pitch = 1
    };

    // Imperial, per second, ratio.
    CUnitSettings() = default;
    CUnitSettings(int units, int speedDisplay, int glideDisplay);

    // The raw stored values; any non-zero unit system counts as metric, any non-zero speed
    // display as per hour.
    int GetUnits() const { return m_units; }
    int GetSpeedDisplay() const { return m_speedDisplay; }
    int GetGlideDisplay() const { return m_glideDisplay; }
    bool IsMetric() const { return m_units != 0; }
    bool IsPerHour() const { return m_speedDisplay != 0; }
    void Set(int units, int speedDisplay, int glideDisplay);

    // Reads "Preferences"/"Units", "DisplaySpeedAs", "DisplayGlideAs". An absent unit system gives
    // defaultUnits (the caller passes the system's measurement system), the others 0.
    void Load(const ISettingsStore& store, int defaultUnits = Imperial);
    // Writes the three values together.
    void Save(ISettingsStore& store) const;

    // Heights: metres <-> m or ft.
    double HeightToDisplay(double metres) const;
    double HeightFromDisplay(double value) const;
    // Fall-rate speeds: m/s <-> m/s, km/h, ft/s or mph.
    double SpeedToDisplay(double metresPerSecond) const;
    double SpeedFromDisplay(double value) const;
    // Wind speeds: m/s <-> knots (metric) or miles per hour (imperial).
    double WindToDisplay(double metresPerSecond) const;
    double WindFromDisplay(double value) const;
    // Summary distances: metres to kilometres or miles.
    double DistanceToDisplay(double metres) const;

    // Labels shown beside the values.
    std::string_view HeightLabel() const;   // "m" / "ft"
    std::string_view SpeedLabel() const;    // "m/s", "km/h", "ft/s", "mph"
    std::string_view WindLabel() const;     // "kn" (metric) / "mph" (imperial)
    std::string_view DistanceLabel() const; // " [km]" / " [mi]"
    // The long distance unit ("km" / "mi") and how many height units it holds (1000 / 5280), for
    // a length that outgrows the height unit.
    std::string_view LongDistanceLabel() const;
    double HeightUnitsPerLongDistance() const;
    // Canopy sizes are square feet in either unit system.
    static constexpr std::string_view kCanopySizeLabel = "ft²";

    // The settings store's section and value names.
    static constexpr std::string_view kSection = "Preferences";
    static constexpr std::string_view kUnits = "Units";
    static constexpr std::string_view kSpeed = "DisplaySpeedAs";
    static constexpr std::string_view kGlide = "DisplayGlideAs";

private:
    int m_units = 0;
    int m_speedDisplay = 0;
    int m_glideDisplay = 0;
};
