#version 110
// A cannon's lamp: a cone from light_position along light_direction (radians,
// field space with y down), fading out by light_distance, lit over the
// ground's slopes as if the lamp hung a little above the field.
uniform sampler2D texture1;
uniform sampler2D texture2;
uniform vec2 light_position;
uniform float light_direction;
uniform float light_distance;
uniform vec4 light_color;
varying vec2 position;

void main()
{
    vec2 away = position - light_position;
    float dist = length(away);
    float reach = max(light_distance, 0.001);
    float fade = clamp(1.0 - dist / reach, 0.0, 1.0);
    vec2 heading = vec2(cos(light_direction), sin(light_direction));
    float along = dot(away, heading) / max(dist, 0.001);
    float cone = smoothstep(0.82, 0.97, along);

    vec2 uv = gl_TexCoord[0].st;
    vec3 slope = texture2D(texture2, uv).rgb;
    vec3 normal = normalize(vec3((slope.rg - vec2(127.0 / 255.0)) * 8.0, slope.b));
    // field y runs down, the slopes' y up
    vec3 toLight = normalize(vec3(-away.x, away.y, 40.0));
    float diffuse = max(dot(normal, toLight), 0.0);

    vec3 ground = texture2D(texture1, uv).rgb;
    gl_FragColor = vec4(ground * light_color.rgb * diffuse * cone * fade * fade * 1.6, 1.0);
}
