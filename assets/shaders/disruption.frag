#version 110
// Static over the field after a breach. time1 is the strength (1 and up, past
// 480 at the end of a lost game), time2 a slower meter that rolls the bands.
uniform sampler2D texture1;
uniform float time1;
uniform float time2;

float random(vec2 p);
float noise(vec2 p);

void main()
{
    float strength = clamp(time1 / 240.0, 0.0, 1.0);
    vec2 uv = gl_TexCoord[0].st;
    float band = noise(vec2(3.7, gl_FragCoord.y / 30.0 + time2 * 0.13));
    // tear the rows sideways, staying inside the field's part of the texture
    uv.x = clamp(uv.x + (band - 0.5) * 0.04 * strength, 0.0, 0.749);
    vec3 picture = texture2D(texture1, uv).rgb * gl_Color.rgb;
    float grain = random(floor(gl_FragCoord.xy / 2.0) + vec2(time1 * 1.7, time2 * 3.1));
    float roll = 0.8 + 0.4 * band;
    vec3 snow = vec3(grain * roll);
    float amount = strength * (0.55 + 0.3 * band);
    gl_FragColor = vec4(mix(picture, snow, amount), 1.0);
}
