#version 110
// The credits' trail: what the last frame left drifts up a little, spreads and
// cools each pass, so the lines drawn on top leave a rising glow.
uniform sampler2D texture1;

void main()
{
    vec2 uv = gl_TexCoord[0].st;
    // Read from below only, clamped at the picture's lower edge, so nothing
    // outside the copied window is ever sampled.
    vec3 near = texture2D(texture1, vec2(uv.x, max(uv.y - 0.002, 0.0))).rgb;
    vec3 far = texture2D(texture1, vec2(max(uv.x - 0.0015, 0.0), max(uv.y - 0.004, 0.0))).rgb;
    vec3 trail = (near * 0.6 + far * 0.4) * 0.9;
    trail *= vec3(0.9, 0.95, 1.0);
    gl_FragColor = vec4(trail * gl_Color.rgb, 1.0);
}
