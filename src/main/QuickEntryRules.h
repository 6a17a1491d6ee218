#pragma once

#include <QString>

namespace lanzhou {

// The widget-free rules of quick entry: the entry ID, the automatic sign of the quantity box and
// the checks that turn the typed item and quantity texts into one movement or a refusal.

// Year code (year - 1948 as a character), month and day, then hundredths of a second since midnight,
// at least 7 digits: 2026-11-15 at 09:05:30.25 gives N11153273025.
QString GenerateEntryId(const QString& serverDate, double secondsSinceMidnight);

// The quantity box's automatic sign: a text that starts (blanks aside) with a digit gets "+" in front,
// one that starts with "." gets "+0"; any other text comes back unchanged.
QString WithAutomaticSign(const QString& text);

// Characters 2 and 3 of the rights string both "0": the operator may not post at all.
bool HasNoPostingRight(const QString& rights);
// The refusal shown (titled "提示") when HasNoPostingRight holds.
QString NoPostingRightText();

struct PostingRequest
{
    QString rights;
    QString item;         // already cleaned
    QString quantityText; // already cleaned
    QString itemLabel;
    QString quantityLabel;
    QString quantityCaption; // the caption beside the quantity box
};

struct Posting
{
    QString item;
    QString numberText; // sign and digits as typed, grouping commas dropped
    double quantity = 0;
    QString remark;
};

struct PostingCheck
{
    Posting posting;
    QString refusal; // empty when the movement may be written
    QString refusalTitle;
    bool refused() const { return !refusal.isEmpty(); }
};

// The checks after the texts are cleaned, from the empty item to the sign rights, in the order the
// operator meets them; titles are "提示" or empty as each message has it.
PostingCheck CheckPosting(const PostingRequest& request);

// Splits a signed quantity text into its number text and the remark that follows it.
Posting SplitQuantity(const QString& quantityText);

} // namespace lanzhou
