#version 110
// Recede: at time 0 the picture is unchanged; by 40 it has sunk into a dim,
// grey, grainy still and stays exactly so for any larger time.
uniform sampler2D texture1;
uniform float time;

float random(vec2 p);

void main()
{
    vec4 picture = texture2D(texture1, gl_TexCoord[0].st) * gl_Color;
    float progress = clamp(time / 40.0, 0.0, 1.0);
    float grey = dot(picture.rgb, vec3(0.3, 0.59, 0.11));
    // fixed grain, so the still does not flicker
    float grain = random(floor(gl_FragCoord.xy / 2.0)) - 0.5;
    vec3 still = vec3(grey * 0.35 + grain * 0.06);
    gl_FragColor = vec4(mix(picture.rgb, still, progress), picture.a);
}
