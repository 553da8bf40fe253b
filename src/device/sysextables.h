#pragma once

#include <array>
#include <string_view>

// The identifier tables of the mixer's system-exclusive messages: a row's position is its byte on
// the wire, and its text is the part of a parameter's name that it stands for.
namespace sysex
{

inline constexpr std::array<std::string_view, 14> channelIdTable{
    "none", "_ch1", "_ch2",   "_ch3",  "_ch4",  "_ch5",  "_ch6",
    "_ch7", "_ch8", "_mains", "_aux1", "_aux2", "_aux3", "_phones",
};

// "EMPTY" rows hold reserved numbers, so that the rows below keep their place.
inline constexpr std::array<std::string_view, 70> parameterIdTable{
    "_enable",
    "_trim",
    "_pre_post",
    "_pan",
    "_fader",
    "_mute",
    "_solo",
    "_group",
    "_mic_line_inst",
    "_eq_low_gain",
    "_eq_mid_gain",
    "_eq_mid_freq",
    "_eq_hi_gain",
    "_eq_low_freq",
    "EMPTY",
    "_eq_mid_q",
    "_eq_hi_freq",
    "_compressor_thresh",
    "_compressor_ratio",
    "_compressor_release",
    "_compressor_gain",
    "EMPTY",
    "EMPTY",
    "_compressor_attack",
    "EMPTY",
    "_gate_thresh",
    "_gate_attack",
    "_gate_release",
    "_gate_gain",
    "_pre_delay",
    "_damping",
    "_diffusion",
    "_decay_time",
    "_level",
    "_monitor_select",
    "_eq_bypass",
    "_compressor_bypass",
    "_gate_bypass",
    "_send_level",
    "_line_phono",
    "_rotary1_radius",
    "_rotary1_angle",
    "_rotary2_radius",
    "_rotary2_angle",
    "_rotary3_radius",
    "_rotary3_angle",
    "_rotary4_radius",
    "_rotary4_angle",
    "_format",
    "_assign",
    "_highPass_bypass",
    "_highPass_freq",
    "hardware_limiter",
    "mode_backlighting_enable",
    "led_brightness",
    "tone_gen_enable",
    "tone_gen_freq",
    "_bypass",
    "sample_rate",
    "bit_depth",
    "pass_thru_width",
    "_bass_management",
    "_phantom",
    "phantom_voltage",
    "_input_prepost",
    "_output_prepost",
    "_impedance",
    "_stereo",
    "pass_thru_rotaries",
    "expander_control",
};

static_assert(channelIdTable[9] == "_mains" && channelIdTable[13] == "_phones");
static_assert(parameterIdTable[14] == "EMPTY" && parameterIdTable[24] == "EMPTY");
static_assert(parameterIdTable[4] == "_fader" && parameterIdTable[38] == "_send_level");
static_assert(parameterIdTable[52] == "hardware_limiter" && parameterIdTable[62] == "_phantom");
static_assert(parameterIdTable[69] == "expander_control");

} // namespace sysex
