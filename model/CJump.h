#pragma once

#include "model/CJumpEdits.h"
#include "model/CJumpEquipmentRef.h"
#include "model/CJumpFallrate.h"
#include "model/CJumpImage.h"
#include "model/CJumpRecording.h"
#include "model/CJumpSeal.h"
#include "model/CJumpSignature.h"
#include "model/CJumpVideo.h"
#include "model/CJumpWind.h"
#include "model/FallrateKind.h"
#include "xml/CDateTime.h"
#include "xml/CXmlHandler.h"

#include <string>
#include <string_view>
#include <vector>

class CXmlWriter;
class CLogbookSettings;
class CEquipmentList;

// One skydive. Heights in metres, times in whole seconds, speeds in m/s. Element "jump".
// Setters return whether the value changed, so that editors know when to mark the document.
class CJump : public CXmlHandler
{
public:
    // A jump with its number, time stamp and last modification; everything else empty.
    CJump(int number, const CZonedDateTime& timestamp, const CDateTime& modified);

    int GetNumber() const { return m_number; }
    bool SetNumber(int number);
    // Date and time of the jump with its UTC offset.
    const CZonedDateTime& GetTimestamp() const { return m_timestamp; }
    bool SetTimestamp(const CZonedDateTime& timestamp);
    // A jump without a time of day carries midnight.
    bool HasTimeOfDay() const { return !m_timestamp.dateTime.IsMidnight(); }
    const CDateTime& GetModified() const { return m_modified; }
    bool SetModified(const CDateTime& modified);

    // The drop zone.
    const std::string& GetPlace() const { return m_place; }
    bool SetPlace(std::string text);
    const std::string& GetAircraft() const { return m_aircraft; }
    bool SetAircraft(std::string text);
    const std::string& GetType() const { return m_type; }
    bool SetType(std::string text);
    const std::string& GetLanding() const { return m_landing; }
    bool SetLanding(std::string text);
    const std::string& GetTeam() const { return m_team; }
    bool SetTeam(std::string text);
    const std::string& GetMalfunction() const { return m_malfunction; }
    bool SetMalfunction(std::string text);

    // --- Fall rate ---
    const CJumpFallrate& GetFallrate() const { return m_fallrate; }
    FallrateKind GetFallrateKind() const { return m_fallrate.kind; }
    int GetExitHeight() const { return m_fallrate.exitHeight; }
    int GetOpenHeight() const { return m_fallrate.openHeight; }
    // Exit minus opening height, signed, not clamped.
    int GetFreefallDistance() const { return m_fallrate.exitHeight - m_fallrate.openHeight; }
    // The freefall time as stored (meaningful for Manual and Import).
    int GetStoredFreefallTime() const { return m_fallrate.freefallTime; }
    int GetCanopyTime() const { return m_fallrate.canopyTime; }
    double GetMaxSpeed() const { return m_fallrate.maxSpeed; }
    double GetAvgSpeed() const { return m_fallrate.avgSpeed; }
    // Stores an edited fall rate. Import values are never edited; kinds other than Manual clear
    // the stored times and speeds; Manual keeps a speed whose magnitude did not change.
    bool SetFallrate(FallrateKind kind, int exitHeight, int openHeight, int freefallTime, double maxSpeed,
                     double avgSpeed);
    // Replaces the whole block as it is (import and reading paths).
    void SetFallrateValues(const CJumpFallrate& fallrate) { m_fallrate = fallrate; }

    // The freefall time to show and total: computed from the settings' speed for Standard,
    // Vertical and Custom, the stored time for Manual and Import, 0 otherwise.
    int FreefallTime(const CLogbookSettings& settings) const;
    // Seconds to fall distance metres from rest with terminal speed vt, in 0.1 s steps.
    static double ComputeFreefallTime(double distance, double terminalSpeed);

    // --- Wind, rig, score ---
    const CJumpWind& GetWind() const { return m_wind; }
    bool SetWind(int direction, double speed);
    const CJumpEquipmentRef& GetEquipmentRef() const { return m_equipment; }
    // The rig at this position of the equipment list.
    bool SetEquipmentByIndex(int index);
    // A rig named by free text; an empty text means no rig.
    bool SetEquipmentByDescription(std::string description);
    bool ClearEquipment();
    // The equipment as an editor shows it: the display text of the referenced rig (when the
    // index names one), the description, or empty.
    std::string GetEquipmentText(const CEquipmentList& rigs) const;
    // Formation size.
    int GetSize() const { return m_size; }
    bool SetSize(int size);
    int GetPoints() const { return m_points; }
    bool SetPoints(int points);

    // --- Media ---
    const std::vector<CJumpImage>& GetImages() const { return m_images; }
    // Adds a picture (names relative to the logbook's folder).
    void AddImage(std::string name, std::string thumbnail);
    bool SetImages(std::vector<CJumpImage> images);
    // The first picture's file name, or empty.
    std::string GetPictureName() const;
    const CJumpVideo& GetVideo() const { return m_video; }
    bool SetVideo(std::string name, double offset);

    // --- Recording and signature ---
    const CJumpRecording& GetRecording() const { return m_recording; }
    CJumpRecording& Recording() { return m_recording; }
    const CJumpSignature& GetSignature() const { return m_signature; }
    CJumpSignature& Signature() { return m_signature; }
    // Signed means the signature is not empty.
    bool IsSigned() const { return !m_signature.IsEmpty(); }
    // Sets signer and strokes as the signature page gives them (the id is kept).
    bool SetSignature(std::string signer, std::vector<CJumpSignature::Stroke> strokes);
    // The seal's state as the document last checked it (JumpSeal::Check); the document keeps it
    // current through every change of the jump or of the settings a seal covers. Not written and
    // not compared.
    SealState GetSealState() const { return m_sealState; }
    void SetSealState(SealState state) { m_sealState = state; }

    // --- Note ---
    // The note as stored: markup, one paragraph per line.
    const std::string& GetNote() const { return m_note; }
    // Stores the markup as it is (reading and import paths).
    bool SetNote(std::string markup);
    // True when the stored note is not empty and does not parse as markup.
    bool NoteIsMarkupBroken() const;
    // The note's character data, paragraphs joined by "\r\n"; false when it does not parse.
    bool GetNoteText(std::string& text) const;
    // Stores plain text as one paragraph per "\r\n"-separated line, unescaped (a line holding
    // "<" breaks the markup, after which every change is refused). Returns whether it changed.
    bool SetNoteText(std::string_view text);

    // --- Editing ---
    // Stores everything the jump editor edits in one call; the equipment text becomes a rig
    // reference when it names a rig of rigs in full, else a description. Returns whether
    // anything changed. The modification stamp is the caller's.
    bool ApplyEdits(const CJumpEdits& edits, const CEquipmentList& rigs);
    // True when the note cannot be edited as plain text: broken markup, or markup other than the
    // plain paragraphs SetNoteText writes.
    bool NoteHasFormat() const;

    // Writes the "jump" element with its attributes and children.
    void Write(CXmlWriter& writer) const;

    // Reader of the children of "jump" (the document reads the attributes and delegates).
    bool OnOpenTag(CXmlParser& parser) override;
    bool OnCloseTag(CXmlParser& parser) override;

    friend bool operator==(const CJump& a, const CJump& b);

private:
    int m_number;
    CZonedDateTime m_timestamp;
    CDateTime m_modified;
    std::string m_place;
    std::string m_aircraft;
    std::string m_type;
    CJumpFallrate m_fallrate;
    CJumpWind m_wind;
    std::string m_landing;
    CJumpEquipmentRef m_equipment;
    int m_size = 0;
    int m_points = 0;
    std::string m_team;
    std::string m_malfunction;
    std::vector<CJumpImage> m_images;
    CJumpVideo m_video;
    std::string m_note;
    CJumpRecording m_recording;
    CJumpSignature m_signature;
    SealState m_sealState = SealState::NotSigned;
};
