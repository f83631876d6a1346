#pragma once

#include "xml/CDateTime.h"
#include "xml/CXmlHandler.h"

#include <string>

class CXmlWriter;

// One rig of the owner: harness, canopies, activation device, the date of the last reserve
// inspection and the jumps made on it before the logbook. Element "equipment".
class CEquipment : public CXmlHandler
{
public:
    // A new active rig with the given number and no values.
    explicit CEquipment(int number = 0);

    int GetNumber() const { return m_number; }
    void SetNumber(int number) { m_number = number; }
    // Whether the rig takes part in the inspection reminder.
    bool IsActive() const { return m_active; }
    void SetActive(bool active) { m_active = active; }
    int GetPreviousJumps() const { return m_previousJumps; }
    void SetPreviousJumps(int jumps) { m_previousJumps = jumps; }

    const std::string& GetHarness() const { return m_harness; }
    void SetHarness(std::string text) { m_harness = std::move(text); }
    const std::string& GetHarnessSerial() const { return m_harnessSerial; }
    void SetHarnessSerial(std::string text) { m_harnessSerial = std::move(text); }
    const std::string& GetMainCanopy() const { return m_mainCanopy; }
    void SetMainCanopy(std::string text) { m_mainCanopy = std::move(text); }
    // Canopy sizes in square feet.
    int GetMainSize() const { return m_mainSize; }
    void SetMainSize(int size) { m_mainSize = size; }
    const std::string& GetMainSerial() const { return m_mainSerial; }
    void SetMainSerial(std::string text) { m_mainSerial = std::move(text); }
    const std::string& GetReserveCanopy() const { return m_reserveCanopy; }
    void SetReserveCanopy(std::string text) { m_reserveCanopy = std::move(text); }
    int GetReserveSize() const { return m_reserveSize; }
    void SetReserveSize(int size) { m_reserveSize = size; }
    const std::string& GetReserveSerial() const { return m_reserveSerial; }
    void SetReserveSerial(std::string text) { m_reserveSerial = std::move(text); }
    const std::string& GetAad() const { return m_aad; }
    void SetAad(std::string text) { m_aad = std::move(text); }
    const std::string& GetAadSerial() const { return m_aadSerial; }
    void SetAadSerial(std::string text) { m_aadSerial = std::move(text); }
    // The date of the last reserve inspection (Null when never inspected).
    const CDateTime& GetInspectionDate() const { return m_inspectionDate; }
    void SetInspectionDate(const CDateTime& date) { m_inspectionDate = date; }

    // The text by which editors and lists show the rig: the number in square brackets, a blank,
    // then the non-empty names of harness, main canopy and reserve canopy joined by " / ",
    // for example "[2] Javelin / Sabre2 / PD Reserve".
    std::string GetDisplayText() const;

    // Writes the "equipment" element.
    void Write(CXmlWriter& writer) const;

    // Reader of the children of "equipment" (the list reads "n" and "active" and delegates).
    bool OnOpenTag(CXmlParser& parser) override;
    bool OnCloseTag(CXmlParser& parser) override;

    // Every field equal; texts exactly, the inspection date by year, month and day only.
    friend bool operator==(const CEquipment& a, const CEquipment& b);

private:
    int m_number;
    bool m_active = true;
    int m_previousJumps = 0;
    std::string m_harness;
    std::string m_harnessSerial;
    std::string m_mainCanopy;
    int m_mainSize = 0;
    std::string m_mainSerial;
    std::string m_reserveCanopy;
    int m_reserveSize = 0;
    std::string m_reserveSerial;
    std::string m_aad;
    std::string m_aadSerial;
    CDateTime m_inspectionDate;
};
