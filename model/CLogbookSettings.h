#pragma once

#include "model/CEquipmentList.h"
#include "model/CMembership.h"
#include "model/FallrateKind.h"
#include "xml/CXmlHandler.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

class CXmlWriter;

// A witness who signed jumps of this logbook, with the licence or rating number the signature page
// fills in when the name is picked again.
struct CKnownSigner
{
    std::string name;
    std::string licence;

    friend bool operator==(const CKnownSigner&, const CKnownSigner&) = default;
};

// The logbook's block that is not a jump: the owner's profile, the fall-rate speeds, the four
// jump-kind labels, the jumps and delay made before the logbook and the rigs. Element "settings".
class CLogbookSettings : public CXmlHandler
{
public:
    // The fixed speeds of Standard and Vertical and the default Custom speed, in m/s.
    static constexpr double kStandardSpeed = 52.5;
    static constexpr double kVerticalSpeed = 76.0;
    static constexpr double kDefaultCustomSpeed = 22.3;
    // Indices of the jump-kind labels for GetKeyword.
    enum Keyword
    {
        VideoJump = 0,
        NightJump = 1,
        CoachJump = 2,
        ReserveActivated = 3
    };

    CLogbookSettings();

    // Everything back to the defaults, the owner's name included.
    void Reset();

    // The owner's name.
    const std::string& GetOwnerName() const { return m_ownerName; }
    void SetOwnerName(std::string name) { m_ownerName = std::move(name); }

    int GetPreviousJumps() const { return m_previousJumps; }
    void SetPreviousJumps(int jumps) { m_previousJumps = jumps; }
    // Freefall seconds made before the logbook was started.
    int GetPreviousDelay() const { return m_previousDelay; }
    void SetPreviousDelay(int seconds) { m_previousDelay = seconds; }

    CMembership& GetMembership() { return m_membership; }
    const CMembership& GetMembership() const { return m_membership; }
    CEquipmentList& GetEquipmentList() { return m_equipment; }
    const CEquipmentList& GetEquipmentList() const { return m_equipment; }

    const std::vector<std::string>& GetLicenses() const { return m_licenses; }
    const std::vector<std::string>& GetRatings() const { return m_ratings; }
    const std::vector<std::string>& GetAwards() const { return m_awards; }
    void SetLicenses(std::vector<std::string> list) { m_licenses = std::move(list); }
    void SetRatings(std::vector<std::string> list) { m_ratings = std::move(list); }
    void SetAwards(std::vector<std::string> list) { m_awards = std::move(list); }
    void AddLicense(std::string text) { m_licenses.push_back(std::move(text)); }
    void AddRating(std::string text) { m_ratings.push_back(std::move(text)); }
    void AddAward(std::string text) { m_awards.push_back(std::move(text)); }

    // The profile dialog's one setter: membership expiry and alarm and the three lists.
    // Returns whether anything changed.
    bool SetProfile(bool expires, const CDateTime& expiry, bool alarm, int alarmDays, std::vector<std::string> licenses,
                    std::vector<std::string> ratings, std::vector<std::string> awards);

    // The signers remembered with their licence numbers, in the order first met.
    const std::vector<CKnownSigner>& GetSigners() const { return m_signers; }
    void SetSigners(std::vector<CKnownSigner> signers) { m_signers = std::move(signers); }
    // Adds the signer, or gives a known one the new licence number; a signer without a name or
    // without a number is not remembered. Returns whether anything changed.
    bool RememberSigner(const std::string& name, const std::string& licence);
    // The remembered licence number of the signer with exactly this name; empty when unknown.
    std::string_view GetSignerLicence(std::string_view name) const;

    // The speed of Standard, Vertical or Custom in m/s; 0 for any other kind.
    double FallrateSpeed(FallrateKind kind) const;
    // Only the Custom speed can change; Standard and Vertical are fixed.
    void SetCustomFallrateSpeed(double speed) { m_customSpeed = speed; }

    // A jump-kind label: 0 video, 1 night, 2 coach, 3 reserve; empty outside 0..3.
    std::string_view GetKeyword(int index) const;
    void SetKeyword(int index, std::string text);

    // Writes the "settings" element with all its children.
    void Write(CXmlWriter& writer) const;

    // Reader of the children of "settings" (the document delegates the element).
    bool OnOpenTag(CXmlParser& parser) override;
    bool OnCloseTag(CXmlParser& parser) override;

    friend bool operator==(const CLogbookSettings& a, const CLogbookSettings& b);

private:
    std::string m_ownerName;
    int m_previousJumps = 0;
    int m_previousDelay = 0;
    CMembership m_membership;
    std::vector<std::string> m_licenses;
    std::vector<std::string> m_ratings;
    std::vector<std::string> m_awards;
    CEquipmentList m_equipment;
    double m_customSpeed = kDefaultCustomSpeed;
    std::array<std::string, 4> m_keywords;
    std::vector<CKnownSigner> m_signers;
};
