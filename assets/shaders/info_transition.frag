#version 110
// One half of a cross-fade, drawn additively: time 0 shows the picture whole,
// 30 leaves nothing. The outgoing picture gets 30 - t and the incoming one t,
// and the two weights always sum to one: the grain term changes sign between
// t and 30 - t, so it cancels in the sum while each half flickers with static.
uniform sampler2D texture1;
varying vec2 uv;
varying vec4 colour;
uniform float time;

float random(vec2 p);

void main()
{
    vec4 picture = texture2D(texture1, uv) * colour;
    float progress = clamp(time / 30.0, 0.0, 1.0);
    float grain = random(floor(gl_FragCoord.xy / 2.0)) * 2.0 - 1.0;
    float weight = 1.0 - progress + 0.15 * sin(6.2831853 * progress) * grain;
    gl_FragColor = picture * weight;
}
