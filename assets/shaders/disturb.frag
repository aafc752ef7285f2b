#version 110
// The field bent by the other side's charge: time1 (1 to 200) sets how far,
// time2 (the side's frame count) moves the waves. The colours split a little.
uniform sampler2D texture1;
uniform float time1;
uniform float time2;

float noise(vec2 p);

vec3 sampleField(vec2 uv)
{
    // the field fills the left three quarters of its texture
    return texture2D(texture1, vec2(clamp(uv.x, 0.0, 0.749), clamp(uv.y, 0.0, 1.0))).rgb;
}

void main()
{
    float strength = clamp(time1 / 200.0, 0.0, 1.0);
    vec2 uv = gl_TexCoord[0].st;
    float wave = sin(uv.y * 37.0 + time2 * 0.21) + noise(vec2(uv.y * 20.0, time2 * 0.05)) - 0.5;
    float wobble = noise(vec2(uv.x * 15.0 + time2 * 0.03, uv.y * 15.0));
    vec2 bent = uv + vec2(wave * 0.012, (wobble - 0.5) * 0.02) * strength;
    float split = 0.004 * strength;
    vec3 rgb = vec3(sampleField(bent + vec2(split, 0.0)).r,
                    sampleField(bent).g,
                    sampleField(bent - vec2(split, 0.0)).b);
    gl_FragColor = vec4(rgb * gl_Color.rgb, 1.0);
}
