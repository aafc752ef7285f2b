#version 110
// A line of the credits: nothing before time 0, then it settles in out of
// grain within 40 frames and stays.
uniform sampler2D texture1;
uniform float time;

float hash(vec2 p)
{
    vec3 q = fract(vec3(p.xyx) * 0.1031);
    q += dot(q, q.yzx + 33.33);
    return fract((q.x + q.y) * q.z);
}

void main()
{
    vec4 picture = texture2D(texture1, gl_TexCoord[0].st) * gl_Color;
    float progress = clamp(time / 40.0, 0.0, 1.0);
    float grain = hash(floor(gl_FragCoord.xy / 2.0) + vec2(time * 3.0));
    float shown = clamp((progress * 1.5 - grain) / 0.5, 0.0, 1.0);
    gl_FragColor = vec4(picture.rgb, picture.a * shown);
}
