#version 110
// Glow over the field after a blast: time counts down from 220 to 1, and with
// it a hot bloom of the picture and a warm wash fade away.
uniform sampler2D texture1;
uniform float time;

const float texel = 1.0 / 512.0;

vec3 sampleField(vec2 uv)
{
    return texture2D(texture1, vec2(clamp(uv.x, 0.0, 0.749), clamp(uv.y, 0.0, 1.0))).rgb;
}

void main()
{
    float glow = clamp(time / 220.0, 0.0, 1.0);
    vec2 uv = gl_TexCoord[0].st;
    vec3 picture = sampleField(uv);
    vec3 bloom = vec3(0.0);
    for (int i = 0; i < 8; i++) {
        float angle = float(i) * 0.785398;
        vec2 offset = vec2(cos(angle), sin(angle)) * texel * 6.0;
        bloom += sampleField(uv + offset) + sampleField(uv + offset * 2.0);
    }
    bloom /= 16.0;
    vec3 rgb = picture + bloom * glow * 0.9 + vec3(1.0, 0.55, 0.25) * glow * glow * 0.35;
    gl_FragColor = vec4(rgb * gl_Color.rgb, 1.0);
}
