#include "simulator/SensorParameters.h"

namespace pelorin {

namespace {

using Parameters = std::map<char, std::string>;

// The values of each type fit each other: 'S' follows from 'U' and 'A', 'Z' and 'M' from the
// stroke length in 'L'.
const Parameters kType0{
    {'D', "020018"}, {'A', "00000010"}, {'L', "0A0500"},   {'F', "SN000417"}, {'V', "1A0204"},
    {'U', "283000"}, {'S', "023600"},   {'P', "0000A5F0"}, {'Z', "068332"},   {'N', "000000"},
};

const Parameters kType1{
    {'D', "820318"}, {'A', "00000020"}, {'L', "0B0800"}, {'F', "SN010882"},
    {'V', "2A0103"}, {'U', "281500"},   {'S', "011980"}, {'P', "0000A6C4"},
    {'Z', "057D32"}, {'N', "FFFFF6"},   {'M', "057D14"},
};

const Parameters kType2{
    {'D', "4A0519"}, {'A', "00000005"}, {'L', "0A1250"},   {'F', "SN012345"}, {'V', "3A0102"},
    {'U', "283000"}, {'S', "046C00"},   {'P', "0000A71E"}, {'Z', "081F32"},   {'N', "00000A"},
    {'M', "081F20"}, {'J', "000001"},   {'K', "000001"},   {'O', "00003C"},
};

std::string find(const Parameters& parameters, char id)
{
    const auto found = parameters.find(id);
    return found == parameters.end() ? std::string() : found->second;
}

} // namespace

SensorParameters::SensorParameters(int type)
    : m_stored(type == 0   ? kType0
               : type == 1 ? kType1
                           : kType2)
{
}

std::string SensorParameters::value(char id) const
{
    return m_pending.contains(id) ? find(m_pending, id) : find(m_stored, id);
}

std::string SensorParameters::stored(char id) const
{
    return find(m_stored, id);
}

void SensorParameters::write(char id, std::string_view text)
{
    if (has(id))
        m_pending.insert_or_assign(id, std::string(text));
}

void SensorParameters::store(char id, std::string_view text)
{
    if (!has(id))
        return;
    m_stored.insert_or_assign(id, std::string(text));
    m_pending.erase(id);
}

void SensorParameters::commit()
{
    for (auto& [id, text] : m_pending)
        m_stored.insert_or_assign(id, std::move(text));
    m_pending.clear();
}

} // namespace pelorin
