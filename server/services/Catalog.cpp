#include "Catalog.h"

namespace Platform::Catalog {

const RemoteConfigLogical::Dictionary_t& Dictionary()
{
    static const RemoteConfigLogical::Dictionary_t s_dictionary{
        {
            {"1", "Encoder"},
            {"2", "Decoder"},
            {"3", "Alarm Control Panel"},
            {"4", "TV Wall"},
            {"5", "ANPR Device"},
            {"6", "Matrix"},
            {"7", "Intelligent Device"},
            {"8", "Access Control"},
            {"16", "LED Device"},
            {"21", "Video Intercom"},
            {"34", "Emergency"},
            {"40", "POS"},
            {"43", "Radar"},
            {"45", "VideoWall Control"},
            {"50", "Lift Controller"},
        },
        {
            {"Alderpoint", "Alderpoint"},
            {"Brightwell", "Brightwell"},
            {"Corvane", "Corvane"},
            {"Dunmoor", "Dunmoor"},
            {"Elmsgate", "Elmsgate"},
            {"Other", "Other"},
        },
        {
            {"Private", "Private"},
            {"ONVIF", "ONVIF"},
            {"SIP", "SIP"},
            {"Modbus TCP", "Modbus TCP"},
        },
    };
    return s_dictionary;
}

} // namespace Platform::Catalog
